// The menus and tool bars of the main window, made from the tables of commands.
#pragma once

#include <QObject>

#include <string>
#include <vector>

class QAction;
class QKeyEvent;
class QMainWindow;
class QMenu;
class QToolBar;

namespace quorrel {

struct Command;
struct MainForm;
struct Menu;
struct ToolButton;

class CommandBars : public QObject {
    Q_OBJECT
  public:
    /// Fills the window's menu bar and adds its tool bars.
    CommandBars(MainForm& main, QMainWindow* window);

    /// A context menu of the tables; null where there is none of the name.
    [[nodiscard]] QMenu* ContextMenu(const QString& name) const;
    /// Takes the icons of the theme anew, as after a change of the palette.
    void ShowIcons();
    /// Says in the status bar why the command of a key cannot be used, for a key that nobody has
    /// taken. False for a key that is none of a command.
    bool TellWhyNot(const QKeyEvent& key);

  private:
    void Tell(const std::string& text);
    void MakeMenu(const Menu& menu);
    void Fill(QMenu* made, const Menu& menu);
    QAction* AddEntry(QMenu* made, const Command& command);
    void Follow(QAction* action, const Command& command);
    QToolBar* MakeToolBar(const char* name, const QString& title);
    void AddButton(QToolBar* bar, const ToolButton& button, bool is_format);
    void AddLists(QToolBar* bar);

    struct Icon {
        QAction* action;
        QString name;
    };

    MainForm& main_;
    QMainWindow* window_;
    std::vector<Icon> icons_;
};

}  // namespace quorrel
