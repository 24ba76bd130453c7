// The main window: it shows what MainForm holds.
#pragma once

#include <QMainWindow>
#include <QPointer>
#include <QTimer>

#include "ui/window_settings.hpp"

class QAbstractItemView;

namespace quorrel {

class CommandBars;
class ContentsPane;
class ElidedLabel;
class HelpWindow;
class IndexPane;
struct MainForm;
class PaneArea;
class PreviewPane;
class TopicsPane;
class WebSurface;

class MainWindow : public QMainWindow {
    Q_OBJECT
  public:
    /// The window comes up when the logic makes it visible.
    MainWindow(MainForm& main, WebSurface& surface, QWidget* source, PreviewPane& preview);

  signals:
    /// The run is over.
    void Closed();

  protected:
    void closeEvent(QCloseEvent* event) override;
    void changeEvent(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    /// Sees all events of the application: a letter with Alt that no menu has taken is not typed.
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void MakePanes(QWidget* source, QWidget* preview);
    void Connect(PreviewPane& preview);
    void MakeContextMenu(QAbstractItemView* view, const char* menu);
    void MakeStatusBar();
    void FollowWindow();
    void FollowStatus();
    void FollowFailures();
    void FollowUnsavedWork();
    void ShowFirstTime();
    void Remember();
    void LookAtProjectFiles();
    void ShowGuide(std::string_view identifier);
    void OpenLink(const std::string& path, const QString& bookmark);

    MainForm& main_;
    WebSurface& surface_;
    WindowSettings settings_;
    QTimer keep_timer_;
    CommandBars* bars_ = nullptr;
    QPointer<HelpWindow> help_;
    PaneArea* area_;
    ContentsPane* contents_;
    TopicsPane* topics_;
    IndexPane* index_;
    ElidedLabel* state_;
    ElidedLabel* path_;
    bool was_shown_ = false;
    bool is_closed_ = false;
};

}  // namespace quorrel
