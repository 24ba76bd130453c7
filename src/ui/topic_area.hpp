// The right side of the window: the seven views of the open topic under their tabs.
#pragma once

#include <QWidget>

class QLabel;
class QStackedWidget;
class QTabBar;

namespace quorrel {

struct MainForm;
class PreviewPane;
class SourceView;
class WebSurface;

class TopicArea : public QWidget {
    Q_OBJECT
  public:
    TopicArea(MainForm& main, WebSurface& surface, SourceView& source, PreviewPane& preview);

    /// Shows a text in place of the views, as for topics that are edited elsewhere.
    void FollowExternalEditor();

  private:
    void MakeTabs();
    void AddPane(const char* name, QWidget* pane);
    void FollowTabs();

    MainForm& main_;
    QTabBar* tabs_;
    QStackedWidget* panes_;
    QLabel* external_;
};

}  // namespace quorrel
