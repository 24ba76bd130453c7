// How long one edit of the contents or of a topic's keywords takes in a project of 10,000 topics,
// by the logic alone and with the window's lists following it.
#include <QApplication>
#include <QTemporaryDir>

#include <algorithm>
#include <cstdio>
#include <ctime>
#include <functional>
#include <string>
#include <vector>

#include "app/main_form.hpp"
#include "app/startup.hpp"
#include "contents/contents_tree.hpp"
#include "contents/topic_keywords.hpp"
#include "platform/native_file_system.hpp"
#include "platform/plain_surface.hpp"
#include "platform/silent_services.hpp"
#include "project/open_project.hpp"
#include "project/topic_properties.hpp"
#include "project_generator.hpp"
#include "ui/contents_item_form.hpp"
#include "ui/contents_pane.hpp"
#include "ui/index_pane.hpp"
#include "ui/qt_screen.hpp"
#include "ui/topics_pane.hpp"

namespace {

using namespace quorrel;

constexpr int kTopics = 10'000;
constexpr int kTurns = 41;

struct Times {
    double logic = 0;
    double with_views = 0;
};

/// Of the processor: the machine may have other work, and the logic may wait for events.
double MillisecondsSince(std::clock_t start) {
    return 1000.0 * static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
}

double Middle(std::vector<double> times) {
    std::sort(times.begin(), times.end());
    return times[times.size() / 2];
}

/// The middle of the times of `work`, and of these with what the views do from the event loop.
Times Measure(const std::function<void(int)>& work) {
    std::vector<double> logic;
    std::vector<double> all;
    for (int i = 0; i < kTurns; ++i) {
        const std::clock_t start = std::clock();
        work(i);
        logic.push_back(MillisecondsSince(start));
        QCoreApplication::processEvents();
        all.push_back(MillisecondsSince(start));
    }
    return {Middle(logic), Middle(all)};
}

void Print(const char* what, const Times& alone, const Times& shown) {
    std::printf("%-34s logic %6.2f ms, with the lists %6.2f ms\n", what, alone.logic,
                shown.with_views);
}

/// The edits, in turn on the same project.
class Edits {
  public:
    explicit Edits(MainForm& main) : main_(main) {}

    Times MovePage() {
        return Measure([this](int turn) { Move(PageInMiddle(), turn); });
    }
    Times MoveBook() {
        return Measure([this](int turn) {
            Move(*main_.contents.Tree1.Roots().at(main_.contents.Tree1.Roots().size() / 2), turn);
        });
    }
    Times ShowItem() {
        TreeView& tree = main_.contents.Tree1;
        return Measure([this, &tree](int turn) {
            tree.Select(&tree.At(1 + turn * (tree.Count() / kTurns)));
            TreeNodeChanged(main_);
        });
    }
    Times AddKeyword() {
        return Measure([this](int turn) {
            main_.window.EditKeyword.Text = "measured " + std::to_string(turn);
            Command1_Click(main_);
            SaveTopicProperties(main_);
        });
    }
    Times DeleteKeyword() {
        return Measure([this](int) {
            CommandDelete_Click(main_);
            SaveTopicProperties(main_);
        });
    }

  private:
    TreeNode& PageInMiddle() {
        TreeNode* node = main_.contents.Tree1.Roots().front();
        while (node->Children() > 0) node = node->ChildAt(node->Children() / 2);
        return *node;
    }
    void Move(TreeNode& node, int turn) {
        main_.contents.Tree1.Select(&node);
        MoveSelectedNode(main_, turn % 2 == 0 ? NodeMove::kDown : NodeMove::kUp);
    }

    MainForm& main_;
};

struct Results {
    Times page, book, item, add, remove;
};

Results Run(const std::string& project, bool with_views) {
    NativeFileSystem files;
    files.flush_to_disk = false;
    QtScreen screen(files);
    PlainSurface surface(files);
    PlainSource source;
    SilentBrowser browser;
    SilentShell shell;
    MainForm main({files, screen, surface, source, browser, shell}, files.WindowsPath(project));
    surface.code_page = [&main] { return main.texts.CodePageNumber(); };
    LoadSettings(main, "html");
    main.project.recent_proj = files.WindowsPath(project);
    OpenProject_Click(main);
    QWidget window;
    if (with_views) {
        window.resize(1000, 700);
        int left = 0;
        for (QWidget* pane :
             std::initializer_list<QWidget*>{new ContentsPane(main), new TopicsPane(main),
                                             new IndexPane(main), new ContentsItemForm(main)}) {
            pane->setParent(&window);
            pane->setGeometry(left, 0, 250, 700);
            left += 250;
        }
        window.show();
    }
    main.window.TabStrip2.SelectedIndex = right_tab::kProperties;
    QCoreApplication::processEvents();
    Edits edits(main);
    Results results;
    results.page = edits.MovePage();
    results.book = edits.MoveBook();
    results.item = edits.ShowItem();
    results.add = edits.AddKeyword();
    results.remove = edits.DeleteKeyword();
    return results;
}

}  // namespace

int main(int argc, char** argv) {
    QApplication app(argc, argv);
    QApplication::setQuitOnLastWindowClosed(false);
    const QTemporaryDir folder;
    const std::string project =
        bench::WriteProject(folder.path().toStdString(), kTopics, 1).string();
    const Results alone = Run(project, false);
    const Results shown = Run(project, true);
    Print("Moving a page by a key", alone.page, shown.page);
    Print("Moving a book of the first level", alone.book, shown.book);
    Print("Selecting a node, panel filled", alone.item, shown.item);
    Print("Adding a keyword, topic stored", alone.add, shown.add);
    Print("Deleting a keyword, topic stored", alone.remove, shown.remove);
    return 0;
}
