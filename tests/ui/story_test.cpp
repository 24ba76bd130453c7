// From an empty folder to a project that is closed and opened again, by clicks and keys alone, in
// both editions.
#include <QMessageBox>
#include <QPushButton>
#include <QTabBar>
#include <QTreeWidget>

#include "ui/authoring_fixture.hpp"
#include "ui/contents_pane.hpp"
#include "ui/drag.hpp"

namespace quorrel::test {
namespace {

struct Edition {
    const char* name;
    const char* command_line;
    const char* family;
    const char* project;
    const char* topics;
    const char* navigation;  // when opened again
    const char* file;
    const char* text;  // in this file of the saved project
};

constexpr const char* kHtmlHelpTopics =
    "The Whole Loaf\n"
    "Feeding|IDH_Feeding|\\bread\\Feeding.htm|1002|\n"
    "FirstTopic|IDH_FirstTopic|\\FirstTopic.htm|1000|\n"
    "Loaf|IDH_Loaf|\\shapes\\Loaf.htm|1004|\n"
    "Starter|IDH_Starter|\\bread\\Starter.htm|1001|\n"
    "White rolls|rolls|\\shapes\\Rolls.htm|4711|bread    :white;breakfast;\n";
constexpr const char* kJavaHelpTopics =
    "The Whole Loaf\n"
    "Feeding|Feeding|\\bread\\Feeding.htm||\n"
    "FirstTopic|FirstTopic|\\HTML\\FirstTopic.htm||\n"
    "Loaf|Loaf|\\shapes\\Loaf.htm||\n"
    "Starter|Starter|\\bread\\Starter.htm||\n"
    "White rolls|Rolls|\\shapes\\Rolls.htm||bread    :white;breakfast;\n";

// As the files give it back: a book without a page of its own takes the identifier of the entry
// before it, and a main key that only heads its sub-keys refers to itself.
constexpr const char* kHtmlHelpNavigation =
    "FirstTopic ~\\FirstTopic.htm#^#IDH_FirstTopic#^#,,,,#^#\n"
    "Rolls ~\\shapes\\Rolls.htm#^#rolls#^#,,,,#^#\n"
    "Loaf ~\\shapes\\Loaf.htm#^#IDH_Loaf#^#,,,,#^#\n"
    "Baking #^#IDH_Loaf#^#,,,,#^#\n"
    "  Starter ~\\bread\\Starter.htm#^#IDH_Starter#^#,,,,#^#\n"
    "  Feeding ~\\bread\\Feeding.htm#^#IDH_Feeding#^#,,,,#^#\n"
    "bread=SEE ALSO: bread>\n"
    "bread    :white=White rolls>~\\shapes\\Rolls.htm;:\n"
    "breakfast=White rolls>~\\shapes\\Rolls.htm;:\n"
    "morning=SEE ALSO: breakfast>\n";
constexpr const char* kJavaHelpNavigation =
    "FirstTopic ~\\HTML\\FirstTopic.htm#^#FirstTopic#^##^#\n"
    "Rolls ~\\shapes\\Rolls.htm#^#Rolls#^##^#\n"
    "Loaf ~\\shapes\\Loaf.htm#^#Loaf#^##^#\n"
    "Baking #^##^##^#\n"
    "  Starter ~\\bread\\Starter.htm#^#Starter#^##^#\n"
    "  Feeding ~\\bread\\Feeding.htm#^#Feeding#^##^#\n"
    "bread=\n"
    "bread    :white=White rolls>~\\shapes\\Rolls.htm;:\n"
    "breakfast=White rolls>~\\shapes\\Rolls.htm;:\n";

constexpr const char* kContentsFileOfJavaHelp =
    "\r\n     <tocitem text=\"FirstTopic\" target=\"FirstTopic\"/>\r\n"
    "     <tocitem text=\"Rolls\" target=\"Rolls\"/>\r\n"
    "     <tocitem text=\"Loaf\" target=\"Loaf\"/>\r\n"
    "     <tocitem text=\"Baking\">\r\n"
    "          <tocitem text=\"Starter\" target=\"Starter\"/>\r\n"
    "          <tocitem text=\"Feeding\" target=\"Feeding\"/>\r\n"
    "     </tocitem>\r\n"
    "</toc>\r\n";
constexpr const char* kAliasFileOfHtmlHelp =
    "IDH_Feeding=bread\\Feeding.htm\r\nIDH_FirstTopic=FirstTopic.htm\r\n"
    "IDH_Loaf=shapes\\Loaf.htm\r\nIDH_Starter=bread\\Starter.htm\r\n"
    "rolls=shapes\\Rolls.htm\r\n";

class Story : public AuthoringFixture, public testing::WithParamInterface<Edition> {
  protected:
    void CreateProject() {
        Start(
            [this](QWidget& startup) {
                dialogs.Expect("FormCreateProject", [this](QWidget& dialog) {
                    const std::string file = std::string("book/") + GetParam().project;
                    Type(dialog, "EditProject", QString::fromStdString(folder.Native(file)));
                    Type(dialog, "EditTitle", "The Loaf");
                    QTest::keyClick(&dialog, Qt::Key_Return);
                });
                Click(startup, "Command1");
            },
            GetParam().command_line);
        ASSERT_TRUE(TopicShows("FirstTopic"));
    }

    /// A topic below the folder, which is made if it is not there; the template by its row.
    void AddTopic(const QString& title, const QString& below, int row) {
        Run("FileNew", "FormNewTopic", [&](QWidget& dialog) {
            auto* folders = dialog.findChild<QTreeWidget*>("Dir1");
            const auto found = folders->findItems(below, Qt::MatchExactly | Qt::MatchRecursive);
            if (found.isEmpty()) {
                ClickItem(folders, folders->model()->index(0, 0));
                dialogs.Expect("FormNewFolder", [&](QWidget& new_folder) {
                    Type(new_folder, "Text1", below);
                    QTest::keyClick(&new_folder, Qt::Key_Return);
                });
                Click(dialog, "Command2");
            } else {
                folders->setCurrentItem(found.constFirst());
            }
            Type(dialog, "EditTitle", title);
            auto* templates = dialog.findChild<QAbstractItemView*>("FileTemplate");
            ClickItem(templates, templates->model()->index(row, 0));
            Click(dialog, "OkCmd");
        });
        EXPECT_TRUE(TopicShows(title));
    }

    [[nodiscard]] QModelIndex Item(const QString& caption) {
        auto* model = Find<ContentsPane>("Tree1")->model();
        const QModelIndexList found = model->match(model->index(0, 0), Qt::DisplayRole, caption, 1,
                                                   Qt::MatchExactly | Qt::MatchRecursive);
        return found.isEmpty() ? QModelIndex() : found.constFirst();
    }
    void DragItem(const QString& from, const QString& to, double part) {
        auto* tree = Find<ContentsPane>("Tree1");
        tree->expandAll();
        QCoreApplication::processEvents();
        const QRect row = tree->visualRect(Item(to));
        Drag(tree, Item(from), tree->viewport(),
             {row.center().x(), row.top() + static_cast<int>(row.height() * part)});
        QCoreApplication::processEvents();
    }
    void NameItem(const QString& caption) {
        auto* tree = Find<ContentsPane>("Tree1");
        tree->setFocus();
        QTest::keyClick(tree, Qt::Key_F2);
        auto* editor = tree->viewport()->findChild<QLineEdit*>();
        ASSERT_NE(editor, nullptr);
        editor->setText(caption);
        QTest::keyClick(editor, Qt::Key_Return);
        EXPECT_TRUE(QTest::qWaitFor([&] { return Item(caption).isValid(); }));
    }

    void ArrangeContents() {
        auto* tree = Find<ContentsPane>("Tree1");
        ASSERT_TRUE(QTest::qWaitFor([&] { return tree->model()->rowCount() == 6; }));
        ClickItem(tree, Item("Waste"));
        Trigger("popnewbook");
        ASSERT_TRUE(QTest::qWaitFor([&] { return Item("New Folder").isValid(); }));
        tree->setCurrentIndex(Item("New Folder"));
        NameItem("Baking");
        DragItem("Starter", "New Topic", 0.9);
        DragItem("Feeding", "Starter", 0.9);
        tree->setCurrentIndex(Item("New Topic"));
        QTest::keyClick(tree, Qt::Key_Delete);
        tree->setCurrentIndex(Item("Baking"));
        QTest::keyClick(tree, Qt::Key_Up, Qt::AltModifier);
    }

    void AddKeyword(const QString& main_key, const QString& sub_key) {
        QTest::keyClicks(Find<QLineEdit>("EditKeyword"), main_key);
        QTest::keyClicks(Find<QLineEdit>("EditSubKey"), sub_key);
        QTest::keyClick(Find<QLineEdit>("EditSubKey"), Qt::Key_Return);
    }
    void EditProperties() {
        auto* tree = Find<ContentsPane>("Tree1");
        ClickItem(tree, Item("Rolls"));
        ASSERT_TRUE(TopicShows("Rolls"));
        Find<QTabBar>("TabStrip2")->setCurrentIndex(right_tab::kProperties - 1);
        AddKeyword("bread", "white");
        AddKeyword("breakfast", "");
        Type(run->window, "EditTitle", "White rolls");
        if (IsHtmlHelp()) {
            Type(run->window, "EditAlias", "rolls");
            Type(run->window, "EditInteger", "4711");
            AddReference();
        }
        Find<QTabBar>("TabStrip2")->setCurrentIndex(right_tab::kNormal - 1);
    }
    void AddReference() {
        Click(run->window, "CommandSeeAlso");
        auto* index = Find<QTreeView>("ListKeywords");
        // The keywords of the page are stored when the topic is left or saved.
        Trigger("FileSave");
        ASSERT_TRUE(QTest::qWaitFor([&] { return Column(index).contains("breakfast"); }));
        ClickItem(index,
                  index->model()->index(static_cast<int>(Column(index).indexOf("breakfast")), 0));
        auto* dialog = Find<QDialog>("FormSeeAlso");
        Type(*dialog, "EditMainKey", "morning");
        Click(*dialog, "Command1");
        Click(*dialog, "CancelButton");
    }

    void RemoveTopic(const QString& title) {
        Find<QTabBar>("TabStrip1")->setCurrentIndex(left_tab::kTopics - 1);
        auto* topics = Find<QTreeView>("ListTopics");
        ASSERT_TRUE(QTest::qWaitFor([&] { return Column(topics).contains(title); }));
        ClickItem(topics,
                  topics->model()->index(static_cast<int>(Column(topics).indexOf(title)), 0));
        Trigger("poplstremove");
        Find<QTabBar>("TabStrip1")->setCurrentIndex(left_tab::kContents - 1);
    }

    static bool IsHtmlHelp() { return std::string(GetParam().family) == "htmlhelp"; }

    [[nodiscard]] std::string Topics() {
        std::string text = Main().project.project_title + "\n";
        const ListView& topics = Main().topics.ListTopics;
        for (int i = 1; i <= topics.Count(); ++i) {
            const ListRow& row = topics.At(i);
            text += row.Text() + "|" + row.SubItems(topic_cell::kMapId) + "|" +
                    row.SubItems(topic_cell::kLocation) + "|" + row.SubItems(topic_cell::kInteger) +
                    "|" + row.SubItems(topic_cell::kKeywords) + "\n";
        }
        return text;
    }
    /// The contents and the index, with "~" for the project's folder.
    [[nodiscard]] std::string Navigation() {
        std::string text;
        for (const TreeNode* node : Main().contents.Tree1.Roots()) text += Below(*node, "");
        const ListView& keywords = Main().keywords.ListKeywords;
        for (int i = 1; i <= keywords.Count(); ++i) {
            const ListRow& row = keywords.At(i);
            text += row.SubItems(keyword_cell::IDX_FULLKEY) + "=" +
                    row.SubItems(keyword_cell::IDX_TITLEPATH) + "\n";
        }
        std::string relative = text;
        const std::string root = Main().project.proj_path;
        for (std::size_t at; (at = relative.find(root)) != std::string::npos;) {
            relative.replace(at, root.size(), "~");
        }
        return relative;
    }
    static std::string Below(const TreeNode& node, const std::string& indent) {
        std::string text = indent + node.Text + " " + node.Tag + "\n";
        for (int i = 0; i < node.Children(); ++i) text += Below(*node.ChildAt(i), indent + "  ");
        return text;
    }
};

TEST_P(Story, EverythingIsAsTheAuthorLeftIt) {
    Install(GetParam().family);
    CreateProject();
    AddTopic("Starter", "bread", 0);
    AddTopic("Feeding", "bread", 1);
    AddTopic("Rolls", "shapes", 0);
    AddTopic("Loaf", "shapes", 1);
    AddTopic("Waste", "bread", 0);
    ArrangeContents();
    EditProperties();
    RemoveTopic("Waste");
    Run("projopt", "FormProjectSettings", [this](QWidget& dialog) {
        Type(dialog, "EditTitle", "The Whole Loaf");
        Click(dialog, "cmdOK");
    });
    Trigger("FileSave");
    const std::string topics = Topics();
    EXPECT_EQ(topics, GetParam().topics);
    EXPECT_FALSE(folder.Exists("book/bread/Starter.htm.tmp.htm"));
    EXPECT_TRUE(folder.Exists("book/bread/Waste.htm")) << "only taken out of the project";
    EXPECT_TRUE(folder.Read(GetParam().file).ends_with(GetParam().text))
        << folder.Read(GetParam().file);
    EXPECT_TRUE(folder.Read("book/shapes/Rolls.htm").starts_with("<title>White rolls</title>"));
    EXPECT_TRUE(run->window.close());

    Start(
        [](QWidget& startup) {
            QTest::keyClick(startup.findChild<QTreeView*>("ListProjects"), Qt::Key_Return);
        },
        GetParam().command_line);
    EXPECT_EQ(Topics(), topics);
    EXPECT_EQ(Navigation(), GetParam().navigation);
}

INSTANTIATE_TEST_SUITE_P(
    Editions, Story,
    testing::Values(Edition{"HtmlHelp", "html", "htmlhelp", "loaf.hhp", kHtmlHelpTopics,
                            kHtmlHelpNavigation, "book/loaf.ali", kAliasFileOfHtmlHelp},
                    Edition{"JavaHelp", "", "javahelp", "loaf.hs", kJavaHelpTopics,
                            kJavaHelpNavigation, "book/loafTOC.xml", kContentsFileOfJavaHelp}),
    [](const auto& edition) { return std::string(edition.param.name); });

}  // namespace
}  // namespace quorrel::test
