#include "ui/main_menu.hpp"

#include <QAction>
#include <QMainWindow>
#include <QMenu>
#include <QMenuBar>

#include "app/form_settings.hpp"
#include "app/main_form.hpp"
#include "project/open_project.hpp"
#include "project/save_project.hpp"
#include "ui/about_box.hpp"
#include "ui/listen.hpp"
#include "ui/qt_text.hpp"

namespace quorrel {
namespace {

template <typename Work>
QAction* AddCommand(QMenu* menu, const QString& name, const QString& text, Work work) {
    QAction* action = menu->addAction(text);
    action->setObjectName(name);
    QObject::connect(action, &QAction::triggered, menu, work);
    return action;
}

/// The first "&" marks the letter of the entry, any other one belongs to the path.
QString MenuText(const std::string& caption) {
    const bool has_mark = caption.starts_with('&');
    const QString text = ToQt(std::string_view(caption).substr(has_mark ? 1 : 0));
    return (has_mark ? "&" : "") + WithoutMnemonics(text);
}

void AddRecent(MainForm& main, QMenu* menu, int number) {
    MenuEntry& entry = main.window.recent.at(static_cast<std::size_t>(number));
    QAction* action = AddCommand(menu, "recent" + QString::number(number), {},
                                 [&main, number] { recent_Click(main, number); });
    const auto show = [action, &entry] {
        const std::string& caption = entry.Caption;
        action->setText(MenuText(caption));
        action->setVisible(entry.Visible() && !caption.empty());
        action->setEnabled(entry.Enabled());
    };
    show();
    Listen(entry.changed, action, show);
}

void AddSeparator(QMenu* menu, MenuEntry& entry) {
    QAction* separator = menu->addSeparator();
    separator->setObjectName("fileexitsep");
    Listen(entry.changed, separator,
           [separator, &entry] { separator->setVisible(entry.Visible()); });
}

}  // namespace

MainMenu MakeMainMenu(MainForm& main, QMainWindow* window) {
    MainMenu result;
    QMenu* file = window->menuBar()->addMenu("&File");
    result.OpenProject =
        AddCommand(file, "OpenProject", "&Open Project...", [&main] { OpenProject_Click(main); });
    result.OpenProject->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_O));
    result.OpenProject->setToolTip("Open Project (Ctrl+O)");
    result.FileSave =
        AddCommand(file, "FileSave", "&Save Project", [&main] { FileSave_Click(main); });
    result.FileSave->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_S));
    result.FileSave->setToolTip("Save Project (Ctrl+S)");
    const auto follow_project = [&main, save = result.FileSave] {
        save->setEnabled(!main.project.proj.empty());
    };
    follow_project();
    Listen(main.window.window.changed, result.FileSave, follow_project);
    file->addSeparator();
    for (int i = 0; i < RecentProjects::kInMenu; ++i) AddRecent(main, file, i);
    AddSeparator(file, main.window.fileexitsep);
    QAction* exit = AddCommand(file, "fileexit", "E&xit", [window] { window->close(); });
    exit->setShortcut(QKeySequence(Qt::CTRL | Qt::Key_Q));
    exit->setMenuRole(QAction::QuitRole);

    QMenu* tools = window->menuBar()->addMenu("&Tools");
    AddCommand(tools, "mnuqrsettings", "Quorrel &Settings...", [&main] {
        mnuqrsettings_Click(main);
    })->setMenuRole(QAction::PreferencesRole);
    QMenu* help = window->menuBar()->addMenu("&Help");
    AddCommand(help, "about", "&About Quorrel...", [&main, window] {
        ShowAbout(main, window);
    })->setMenuRole(QAction::AboutRole);
    return result;
}

}  // namespace quorrel
