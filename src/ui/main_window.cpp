#include "ui/main_window.hpp"

#include <QApplication>
#include <QCloseEvent>
#include <QIcon>
#include <QOpenGLWidget>
#include <QShortcut>
#include <QSplitter>
#include <QStatusBar>
#include <QTabWidget>

#include "app/main_form.hpp"
#include "app/startup.hpp"
#include "project/open_topic.hpp"
#include "ui/about_box.hpp"
#include "ui/appearance.hpp"
#include "ui/command_bars.hpp"
#include "ui/contents_pane.hpp"
#include "ui/elided_label.hpp"
#include "ui/index_pane.hpp"
#include "ui/listen.hpp"
#include "ui/qt_text.hpp"
#include "ui/topic_area.hpp"
#include "ui/topics_pane.hpp"
#include "ui/web_surface.hpp"

namespace quorrel {
namespace {

constexpr int kLeftWidth = 300;
constexpr const char* kSplitter = "MainForm/left";

/// A window without OpenGL is made anew by Qt when its first web view joins it: it would jump to
/// another place on the screen and lose the focus. A child that wants OpenGL, though never shown,
/// gives it the right kind of surface from the start.
void PrepareForWebView(QWidget* window) {
    if (QGuiApplication::platformName() == "offscreen") return;
    auto* child = new QOpenGLWidget(window);
    child->setFixedSize(0, 0);
    child->hide();
}

}  // namespace

MainWindow::MainWindow(MainForm& main, WebSurface& surface, QWidget* source, QWidget* preview)
    : main_(main),
      surface_(surface),
      splitter_(new QSplitter),
      tabs_(new QTabWidget),
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
    bars_ = new CommandBars(main_, this);
    MakeLeftSide();
    splitter_->setObjectName("splitter");
    splitter_->addWidget(new TopicArea(main_, {surface_.Widget(), source, preview}));
    splitter_->setStretchFactor(0, 0);
    splitter_->setStretchFactor(1, 1);
    splitter_->setChildrenCollapsible(false);
    setCentralWidget(splitter_);
    MakeStatusBar();
    surface_.code_page = [this] { return main_.texts.CodePageNumber(); };
    surface_.link_clicked = [this](const std::string& path, const QString& bookmark) {
        OpenLink(path, bookmark);
    };
    Listen(main_.window.window.changed, this, [this] { FollowWindow(); });
    Listen(main_.window.TabStrip1.changed, this, [this] { FollowTabs(); });
    Listen(main_.window.StatusBar1.changed, this, [this] { FollowStatus(); });
    FollowTabs();
    FollowStatus();
}

void MainWindow::MakeLeftSide() {
    tabs_->setObjectName("TabStrip1");
    tabs_->setAccessibleName("Lists of the project");
    tabs_->setDocumentMode(true);
    const TabStrip& strip = main_.window.TabStrip1;
    int number = 0;
    for (QWidget* pane : {static_cast<QWidget*>(contents_), static_cast<QWidget*>(topics_),
                          static_cast<QWidget*>(index_)}) {
        tabs_->addTab(pane, ToQt(strip.TabCaption(++number)));
        tabs_->setTabToolTip(number - 1, "Ctrl+" + QString::number(number));
        auto* key = new QShortcut(QKeySequence("Ctrl+" + QString::number(number)), this);
        connect(key, &QShortcut::activated, this, [this, pane, number] {
            main_.window.TabStrip1.SelectedIndex = number;
            pane->setFocus();
        });
    }
    connect(tabs_, &QTabWidget::currentChanged, this,
            [this](int tab) { main_.window.TabStrip1.SelectedIndex = tab + 1; });
    splitter_->addWidget(tabs_);
}

void MainWindow::MakeStatusBar() {
    statusBar()->setObjectName("StatusBar1");
    statusBar()->setAccessibleName("Status");
    state_->setAccessibleName("State");
    path_->setAccessibleName("Path of the topic");
    statusBar()->addWidget(state_, 1);
    statusBar()->addWidget(path_, 2);
}

void MainWindow::FollowWindow() {
    const Control& window = main_.window.window;
    setWindowTitle(ToQt(window.Caption()));
    if (window.Visible() && !was_shown_) ShowFirstTime();
    if (!is_closed_) setVisible(window.Visible());
}

void MainWindow::ShowFirstTime() {
    was_shown_ = true;
    if (!settings_.RestoreGeometry("MainForm", this)) resize(1100, 720);
    const int left = settings_.Number(kSplitter, kLeftWidth);
    splitter_->setSizes({left, qMax(1, width() - left)});
    topics_->AdoptColumns(settings_);
    index_->Rows().AdoptColumns();
    contents_->setFocus();
}

void MainWindow::FollowTabs() {
    const TabStrip& strip = main_.window.TabStrip1;
    for (int i = 1; i <= strip.Count(); ++i) {
        tabs_->setTabText(i - 1, WithoutMnemonics(ToQt(strip.TabCaption(i))));
    }
    tabs_->setCurrentIndex(strip.SelectedIndex() - 1);
}

void MainWindow::FollowStatus() {
    const std::string& state = main_.window.StatusBar1.Panel(1);
    // The logic puts the title back at once; the reader needs a moment.
    constexpr int kMoment = 3000;
    if (state == "Project Saved.") statusBar()->showMessage(ToQt(state), kMoment);
    state_->ShowText(ToQt(state));
    path_->ShowText(ToQt(main_.window.StatusBar1.Panel(2)));
}

void MainWindow::OpenLink(const std::string& path, const QString& bookmark) {
    const ListRow* row = main_.topics.ListTopics.FirstWith(topic_cell::kFullPath, path);
    if (row == nullptr) return;
    surface_.SetNextBookmark(bookmark);
    OpenTopicRow(main_, *row);
}

void MainWindow::Remember() {
    settings_.SaveGeometry("MainForm", this);
    settings_.SetNumber(kSplitter, splitter_->sizes().constFirst());
    topics_->SaveColumns(settings_);
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (is_closed_) return event->accept();
    if (!Form_QueryUnload(main_)) return event->ignore();
    is_closed_ = true;
    Remember();
    Form_Unload(main_);
    event->accept();
    emit Closed();
}

void MainWindow::changeEvent(QEvent* event) {
    QMainWindow::changeEvent(event);
    if (event->type() != QEvent::PaletteChange || bars_ == nullptr) return;
    ChooseIconTheme(palette());
    bars_->ShowIcons();
}

}  // namespace quorrel
