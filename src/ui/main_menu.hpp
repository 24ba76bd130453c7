// The menu bar of the main window.
#pragma once

class QAction;
class QMainWindow;

namespace quorrel {

struct MainForm;

struct MainMenu {
    QAction* OpenProject = nullptr;
    QAction* FileSave = nullptr;
};

/// Fills the window's menu bar and follows the recent projects.
MainMenu MakeMainMenu(MainForm& main, QMainWindow* window);

}  // namespace quorrel
