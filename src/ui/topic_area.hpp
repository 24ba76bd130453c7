// The right side of the window: the seven views of the open topic under their tabs.
#pragma once

#include <QSet>
#include <QWidget>

class QLabel;
class QStackedWidget;
class QTabBar;

namespace quorrel {

struct MainForm;

/// The widgets of the views. One that is missing leaves its tab disabled.
struct TopicPanes {
    QWidget* surface = nullptr;
    QWidget* source = nullptr;
    QWidget* preview = nullptr;
};

class TopicArea : public QWidget {
    Q_OBJECT
  public:
    TopicArea(MainForm& main, const TopicPanes& panes);

    /// Shows a text in place of the views, as for topics that are edited elsewhere.
    void FollowExternalEditor();

  private:
    void MakeTabs();
    void AddPane(int tab, const char* name, QWidget* pane);
    void FollowTabs();

    MainForm& main_;
    QTabBar* tabs_;
    QStackedWidget* panes_;
    QLabel* external_;
    QSet<int> shown_tabs_;
};

}  // namespace quorrel
