#include "ui/main_window.hpp"

#include <QApplication>
#include <QCloseEvent>
#include <QIcon>
#include <QKeyEvent>
#include <QLabel>
#include <QOpenGLWidget>
#include <QScopeGuard>
#include <QStatusBar>
#include <QTimer>

#include "app/failed_step.hpp"
#include "app/main_form.hpp"
#include "app/startup.hpp"
#include "contents/contents_drag.hpp"
#include "documents/topic_report.hpp"
#include "platform/text.hpp"
#include "platform/unicode.hpp"
#include "project/foreign_files.hpp"
#include "project/open_topic.hpp"
#include "project/project_files.hpp"
#include "project/unsaved_work.hpp"
#include "ui/about_box.hpp"
#include "ui/appearance.hpp"
#include "ui/command_bars.hpp"
#include "ui/contents_item_form.hpp"
#include "ui/contents_pane.hpp"
#include "ui/context_menu.hpp"
#include "ui/elided_label.hpp"
#include "ui/guarded_application.hpp"
#include "ui/help_window.hpp"
#include "ui/index_pane.hpp"
#include "ui/listen.hpp"
#include "ui/outline_pane.hpp"
#include "ui/pane_area.hpp"
#include "ui/preview_pane.hpp"
#include "ui/preview_view.hpp"
#include "ui/progress_view.hpp"
#include "ui/qt_text.hpp"
#include "ui/scrolled_dialog.hpp"
#include "ui/topic_properties_page.hpp"
#include "ui/topics_pane.hpp"
#include "ui/web_surface.hpp"

namespace quorrel {
namespace {

constexpr int kLeftWidth = 300;
constexpr const char* kSplit = "MainForm/left";

/// A window without OpenGL is made anew by Qt when its first web view joins it: it would jump to
/// another place on the screen and lose the focus. A child that wants OpenGL, though never shown,
/// gives it the right kind of surface from the start.
void PrepareForWebView(QWidget* window) {
    if (QGuiApplication::platformName() == "offscreen") return;
    auto* child = new QOpenGLWidget(window);
    child->setFixedSize(0, 0);
    child->hide();
}

/// A character with Alt, but for those that the keypad makes of a number.
bool IsLetterWithAlt(const QKeyEvent& key) {
    const auto modifiers = key.modifiers() & ~Qt::ShiftModifier;
    return modifiers == Qt::AltModifier && !key.text().isEmpty() && key.text().at(0).isPrint();
}

bool IsInPreview(const QObject* object) {
    for (; object != nullptr; object = object->parent()) {
        if (qobject_cast<const PreviewView*>(object) != nullptr) return true;
    }
    return false;
}

}  // namespace

MainWindow::MainWindow(MainForm& main, WebSurface& surface, QWidget* source, PreviewPane& preview)
    : main_(main),
      surface_(surface),
      area_(new PaneArea(main)),
      contents_(new ContentsPane(main)),
      topics_(new TopicsPane(main)),
      index_(new IndexPane(main)),
      state_(new ElidedLabel("StatusBar1.1", Qt::ElideRight)),
      path_(new ElidedLabel("StatusBar1.2", Qt::ElideMiddle)) {
    setObjectName("MainForm");
    setWindowIcon(QIcon(":/quorrel/icons/quorrel.svg"));
    main_.window.window.Visible = false;
    PrepareForWebView(this);
    ChooseIconTheme(palette());
    main_.window.close = [this] { close(); };
    main_.window.show_about = [this] { ShowAbout(main_, this); };
    main_.window.show_help = [this](std::string_view identifier) { ShowGuide(identifier); };
    bars_ = new CommandBars(main_, this);
    MakePanes(source, preview.Widget());
    Connect(preview);
    MakeStatusBar();
    surface_.code_page = [this] { return main_.texts.CodePageNumber(); };
    surface_.link_clicked = [this](const std::string& path, const QString& bookmark) {
        OpenLink(path, bookmark);
    };
    surface_.drop_taken = [this](const QMimeData&) { return TakeDropOnSurface(main_); };
    Listen(main_.window.window.changed, this, [this] { FollowWindow(); });
    Listen(main_.window.StatusBar1.changed, this, [this] { FollowStatus(); });
    FollowStatus();
    FollowFailures();
    FollowUnsavedWork();
#ifndef Q_OS_MACOS  // where Alt makes characters
    qApp->installEventFilter(this);
#endif
}

void MainWindow::FollowUnsavedWork() {
    // What comes within this time is kept in one go.
    constexpr int kMilliseconds = 1000;
    keep_timer_.setSingleShot(true);
    keep_timer_.setInterval(kMilliseconds);
    connect(&keep_timer_, &QTimer::timeout, this, [this] { KeepUnsavedWork(main_); });
    Listen(main_.unsaved.changed, this, [this] {
        if (!keep_timer_.isActive()) keep_timer_.start();
    });
}

void MainWindow::FollowFailures() {
    auto* application = qobject_cast<GuardedApplication*>(qApp);
    if (application == nullptr) return;
    connect(application, &GuardedApplication::StepFailed, this,
            [this](int number, const QString& text, bool is_news) {
                LogFailedStep(main_, number, FromQt(text));
                if (is_news) TellFailedStep(main_, FromQt(text));
            });
}

void MainWindow::Connect(PreviewPane& preview) {
    preview.code_page = [this] { return main_.texts.CodePageNumber(); };
    preview.links_from = [this](const std::string& path) {
        const bool is_report =
            !main_.project.proj.empty() && EqualsIgnoringCase(path, ReportPath(main_));
        return is_report ? std::string(BeforeLast(main_.project.proj, '\\', {})) : std::string();
    };
    preview.belongs = [this](const std::string& path) { return IsFileOfProject(main_, path); };
}

void MainWindow::MakePanes(QWidget* source, QWidget* preview) {
    // In the order in which the Tab key goes through them.
    auto* outline = new OutlinePane(main_);
    area_->Add("Tree1", contents_, &PaneLayout::Tree1);
    area_->Add("ListTopics", topics_, &PaneLayout::ListTopics);
    area_->Add("ListKeywords", index_, &PaneLayout::ListKeywords);
    area_->Add("DHTMLEdit1", surface_.Widget(), &PaneLayout::DHTMLEdit1);
    area_->AddExternalEditorLabel();
    area_->Add("PictureProperties", new TopicPropertiesPage(main_), &PaneLayout::PictureProperties);
    area_->Add("PictureTOCEdit", new ContentsItemForm(main_), &PaneLayout::PictureTOCEdit);
    area_->Add("Source1", source, &PaneLayout::Source1);
    area_->Add("WebBrowser1", preview, &PaneLayout::WebBrowser1);
    area_->Add("TreeDoc", outline, &PaneLayout::TreeDoc);
    area_->Add("PictureDocEdit", new OutlinePanel, &PaneLayout::PictureDocEdit);
    MakeContextMenu(contents_, "mnutreepop");
    MakeContextMenu(topics_, "mnulistpop");
    MakeContextMenu(index_, "mnuindexpop");
    MakeContextMenu(outline, "mnutreedocpop");
    setCentralWidget(area_);
}

void MainWindow::MakeContextMenu(QAbstractItemView* view, const char* menu) {
    new ContextMenuOpener(view, bars_->ContextMenu(menu));
}

void MainWindow::MakeStatusBar() {
    statusBar()->setObjectName("StatusBar1");
    statusBar()->setAccessibleName("Status");
    state_->setAccessibleName("State");
    path_->setAccessibleName("Path of the topic");
    statusBar()->addWidget(state_, 1);
    statusBar()->addWidget(path_, 2);
    constexpr int kPatience = 300;
    statusBar()->addPermanentWidget(new ProgressView(main_.window.progress, "progress", kPatience));
}

void MainWindow::FollowWindow() {
    const Control& window = main_.window.window;
    setWindowTitle(ToQt(window.Caption()));
    QCoreApplication::setApplicationName(ToQt(main_.settings.APP_NAME));
    if (window.Visible() && !was_shown_) ShowFirstTime();
    if (!is_closed_) setVisible(window.Visible());
}

void MainWindow::ShowFirstTime() {
    was_shown_ = true;
    if (!settings_.RestoreGeometry("MainForm", this)) resize(FittingSize(*this, {1100, 720}));
    // The area takes its size when the window is shown; the split wants it now.
    setVisible(true);
    area_->StartWithSplitAt(settings_.Number(kSplit, kLeftWidth));
    topics_->AdoptColumns(settings_);
    index_->Rows().AdoptColumns();
    contents_->setFocus();
}

void MainWindow::FollowStatus() {
    const std::string& state = main_.window.StatusBar1.Panel(1);
    // The logic puts the title back at once; the reader needs a moment.
    constexpr int kMoment = 3000;
    if (state == "Project Saved.") statusBar()->showMessage(ToQt(state), kMoment);
    state_->ShowText(ToQt(state));
    path_->ShowText(ToQt(main_.window.StatusBar1.Panel(2)));
}

void MainWindow::ShowGuide(std::string_view identifier) {
    // A dialog lets the user reach its own windows only.
    QWidget* dialog = QApplication::activeModalWidget();
    QWidget* parent = dialog != nullptr ? dialog : this;
    if (help_.isNull() || help_->parentWidget() != parent) {
        delete help_;
        help_ = new HelpWindow(main_, parent);
    }
    help_->ShowTopic(identifier);
    help_->show();
    help_->raise();
    help_->activateWindow();
}

void MainWindow::OpenLink(const std::string& path, const QString& bookmark) {
    const ListRow* row = main_.topics.ListTopics.FirstWith(topic_cell::kFullPath, path);
    if (row == nullptr) return;
    surface_.SetNextBookmark(bookmark);
    OpenTopicRow(main_, *row);
}

void MainWindow::Remember() {
    settings_.SaveGeometry("MainForm", this);
    settings_.SetNumber(kSplit, area_->SplitInPixels());
    topics_->SaveColumns(settings_);
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (is_closed_) return event->accept();
    // It stays open also where a failure breaks off the question whether it may close.
    event->ignore();
    if (!Form_QueryUnload(main_)) return;
    event->accept();
    is_closed_ = true;
    // The run ends whatever the rest raises, and not before a message of it has been read.
    const auto end = qScopeGuard([this] { emit Closed(); });
    Remember();
    Form_Unload(main_);
}

void MainWindow::LookAtProjectFiles() {
    const bool is_free = isActiveWindow() && QApplication::activeModalWidget() == nullptr &&
                         main_.window.window.Enabled() && !main_.DHTMLEdit1.Busy();
    if (is_free && was_shown_ && !is_closed_) NoticeForeignChanges(main_);
}

void MainWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    // Not from within the event, which may come while a question is being closed.
    if (event->type() == QEvent::ActivationChange && isActiveWindow()) {
        QTimer::singleShot(0, this, [this] { LookAtProjectFiles(); });
    }
    if (event->type() != QEvent::PaletteChange || bars_ == nullptr) return;
    ChooseIconTheme(palette());
    bars_->ShowIcons();
}

void MainWindow::keyPressEvent(QKeyEvent* event) {
    // What comes up here nobody has taken.
    if (!bars_->TellWhyNot(*event)) QMainWindow::keyPressEvent(event);
}

bool MainWindow::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::KeyPress || !watched->isWidgetType()) return false;
    const auto& key = *static_cast<QKeyEvent*>(event);
    // A page in the preview may have keys of its own.
    if (!IsLetterWithAlt(key) || QApplication::activePopupWidget() != nullptr ||
        IsInPreview(watched)) {
        return false;
    }
    const bool is_here = static_cast<QWidget*>(watched)->window() == this;
    if (!is_here || !bars_->TellWhyNot(key)) main_.screen.Beep();
    return true;
}

}  // namespace quorrel
