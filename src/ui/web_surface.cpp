#include "ui/web_surface.hpp"

#include <QJsonDocument>
#include <QLabel>
#include <QMenu>
#include <QRandomGenerator>
#include <QShortcut>
#include <QStackedWidget>
#include <QVBoxLayout>
#include <QWebEngineLoadingInfo>
#include <QWebEngineProfile>
#include <QWebEngineScriptCollection>
#include <QWebEngineSettings>
#include <utility>

#include "editor/surface_limits.hpp"
#include "platform/code_page.hpp"
#include "platform/failure.hpp"
#include "platform/text.hpp"
#include "platform/topic_encoding.hpp"
#include "ui/find_bar.hpp"
#include "ui/qt_text.hpp"
#include "ui/surface_script.hpp"
#include "ui/topic_page.hpp"
#include "ui/topic_scheme.hpp"
#include "ui/topic_view.hpp"

namespace quorrel {
namespace {

/// A document that is not there by then goes on loading, but nobody waits for it any longer.
constexpr qint64 kPatienceMilliseconds = 15000;
/// A selection that is being drawn changes many times a second.
constexpr int kDisplayMilliseconds = 50;

/// The text by which a place in the document is marked for a moment.
const QString kMarker = "QRLSEL28";

/// Nothing that a page writes can begin like this.
QString RandomToken() {
    QString token;
    for (int i = 0; i < 4; ++i) {
        token += QString::number(QRandomGenerator::system()->generate64(), 36) + '-';
    }
    return token;
}

}  // namespace

WebSurface::WebSurface(FileSystem& files)
    : code_page([] { return CodePageOfMachine().number; }),
      files_(files),
      stack_(new QStackedWidget),
      hint_(new QLabel),
      token_(RandomToken()) {
    stack_->setObjectName("TopicArea");
    hint_->setObjectName("TopicHint");
    hint_->setAlignment(Qt::AlignCenter);
    hint_->setWordWrap(true);
    hint_->setMargin(24);
    hint_->setTextFormat(Qt::PlainText);
    stack_->addWidget(hint_);
    ShowHint("Open a project with File > Open Project.");
    load_timer_.setSingleShot(true);
    load_timer_.setInterval(0);
    connect(&load_timer_, &QTimer::timeout, this, &WebSurface::StartLoad);
    hear_timer_.setSingleShot(true);
    connect(&hear_timer_, &QTimer::timeout, this, &WebSurface::Hear);
    display_timer_.setSingleShot(true);
    display_timer_.setInterval(kDisplayMilliseconds);
    connect(&display_timer_, &QTimer::timeout, this, [this] {
        Events events;
        events.display = true;
        Raise(events);
    });
}

WebSurface::~WebSurface() {
    calls_.reset();
    if (!stack_.isNull() && stack_->parent() == nullptr) delete stack_;
    // A page must not outlive its profile.
    delete page_;
    // Its end may still serve requests, which need what is to go after it.
    profile_.reset();
}

QWidget* WebSurface::Widget() const {
    return stack_;
}

QWebEngineView* WebSurface::View() const {
    return view_;
}

// ---- The engine

void WebSurface::StartEngine() {
    if (!view_.isNull()) return;
    // Without a name it keeps nothing on disk.
    profile_ = std::make_unique<QWebEngineProfile>();
    profile_->setUrlRequestInterceptor(new RequestFilter(profile_.get()));
    const auto document = [this](const QUrl& url) {
        const bool is_open = url.adjusted(QUrl::RemoveFragment) == url_;
        return is_open ? std::optional<std::string>(source_) : std::nullopt;
    };
    auto* handler = new TopicSchemeHandler(
        files_, [this] { return code_page(); }, document, profile_.get());
    profile_->installUrlSchemeHandler(kTopicScheme, handler);
    view_ = new TopicView(nullptr);
    page_ = new TopicPage(profile_.get(), this);
    calls_ = std::make_unique<PageCalls>(page_, nullptr);
    document_.SetCalls(calls_.get());
    ConnectPage();
    view_->setPage(page_);
    BuildPane();
}

void WebSurface::BuildPane() {
    pane_ = new QWidget;
    auto* column = new QVBoxLayout(pane_);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(view_, 1);
    find_bar_ = new FindBar(pane_);
    column->addWidget(find_bar_);
    // The view hands its keys to a child that comes and goes; the bar's keys are taken here.
    find_bar_->Serve(view_);
    connect(find_bar_, &FindBar::OpenRequested, this, &WebSurface::OpenFindBar);
    connect(find_bar_, &FindBar::Find, this, &WebSurface::Search);
    const auto on_key = [this](const QKeySequence& key, auto work) {
        auto* shortcut = new QShortcut(key, pane_);
        shortcut->setContext(Qt::WidgetWithChildrenShortcut);
        connect(shortcut, &QShortcut::activated, this, work);
    };
    on_key(QKeySequence::Find, [this] { OpenFindBar(); });
    on_key(Qt::Key_F3, [this] { find_bar_->Repeat(FindBar::Step::kNext); });
    on_key(Qt::SHIFT | Qt::Key_F3, [this] { find_bar_->Repeat(FindBar::Step::kPrevious); });
    stack_->addWidget(pane_);
}

void WebSurface::ConnectPage() {
    page_->link_clicked = [this](const QUrl& url) { FollowLink(url); };
    page_->console_written = [this](const QString& text) { NoteMessage(text); };
    connect(page_, &QWebEnginePage::loadingChanged, this, &WebSurface::NoteLoading);
    connect(page_, &QWebEnginePage::renderProcessTerminated, this, &WebSurface::NoteCrash);
    connect(calls_.get(), &PageCalls::Edited, this, &WebSurface::HearSoon);
    connect(calls_.get(), &PageCalls::Idle, this, &WebSurface::DeliverEvents, Qt::QueuedConnection);
    view_->input_seen = [this] { is_input_seen_ = true; };
    view_->may_drop = [this](const QDropEvent& event) { return MayDrop(event); };
    view_->dropped = [this](const QDropEvent& event) { Drop(event); };
    view_->menu_wanted = [this](const QPoint& place) {
        Events events;
        events.menu = place;
        Raise(events);
    };
}

// ---- The document

void WebSurface::LoadDocument(std::string_view path) {
    TopicText topic = ReadTopicText(files_.ReadFile(path), code_page());
    source_ = std::move(topic.text);
    encoding_ = topic.encoding;
    path_ = path;
    is_set_ = false;
    is_first_look_ = true;
    crashes_ = 0;
    bookmark_ = std::exchange(next_bookmark_, {});
    Show();
}

void WebSurface::SetDocumentHTML(std::string_view html) {
    // A text that is set at once after loading is the same document still.
    if (IsDirty()) bookmark_.clear();
    source_ = html;
    is_set_ = true;
    Show();
}

void WebSurface::Show() {
    base_url_.clear();
    saved_version_ = 0;
    html_version_ = 0;
    html_.clear();
    heard_ = {};
    hear_timer_.stop();
    unheard_since_.invalidate();
    is_shown_again_ = false;
    is_input_seen_ = false;
    if (calls_) calls_->SetLoad(0);
    ++load_;
    is_loaded_ = false;
    is_script_there_ = false;
    tries_ = 0;
    busy_ = true;
    busy_since_.start();
    if (FitsSurface(source_)) return load_timer_.start();
    ShowNothing(ToQt(TooLargeMessage()));
    EndLoad();
}

void WebSurface::ShowNothing(const QString& why) {
    load_timer_.stop();
    url_.clear();
    busy_ = false;
    if (!page_.isNull()) {
        // Nobody types into what is not shown.
        page_->settings()->setAttribute(QWebEngineSettings::FocusOnNavigationEnabled, false);
        page_->Show(BlankUrl());
    }
    ShowHint(why);
}

void WebSurface::StartLoad() {
    if (stack_.isNull()) return;
    StartEngine();
    url_ = UrlOfTopic(path_, load_);
    QUrl shown = url_;
    if (!bookmark_.isEmpty()) shown.setFragment(bookmark_);
    page_->scripts().clear();
    page_->scripts().insert(SurfaceScript(Setup()));
    stack_->setCurrentWidget(pane_);
    // Without this the engine takes no keys before the first click into the page. It also sets the
    // caret to the start, late, so a text that is shown anew for the same topic does without.
    page_->settings()->setAttribute(QWebEngineSettings::FocusOnNavigationEnabled,
                                    std::exchange(is_first_look_, false));
    // Behind another view it takes the keys away from the list that opened the topic.
    // A dialog may be in front of the window.
    keys_back_to_ = view_->isVisible() ? nullptr : view_->window()->focusWidget();
    page_->Show(shown);
}

QJsonObject WebSurface::LookForPage() const {
    return {{"browse", look_.browse},
            {"borders", look_.borders},
            {"details", look_.details},
            {"grid", look_.grid}};
}

QJsonObject WebSurface::Setup() const {
    // Where a native root has no drive of its own, one stands for it.
    const std::string root = files_.WindowsPath("/").substr(0, 2);
    return {{"token", token_},   {"load", load_},
            {"marker", kMarker}, {"root", root.ends_with(':') ? ToQt(root) : QString()},
            {"copied", copied_}, {"view", LookForPage()}};
}

void WebSurface::SaveDocument(std::string_view path) {
    files_.WriteFile(path, TopicBytes(DocumentHTML(), encoding_));
    DocumentSaved(path);
}

void WebSurface::DocumentSaved(std::string_view path) {
    path_ = path;
    is_set_ = false;
    saved_version_ = Version();
}

void WebSurface::NewDocument(std::string_view why) {
    source_.clear();
    path_.clear();
    encoding_ = {TextEncoding::Form::kUtf8, kUtf8CodePage};
    is_set_ = false;
    next_bookmark_.clear();
    bookmark_.clear();
    Show();
    ShowNothing(ToQt(why));
}

void WebSurface::ShowHint(const QString& text) {
    if (stack_.isNull()) return;
    hint_->setText(text);
    stack_->setCurrentWidget(hint_);
}

bool WebSurface::IsReady() const {
    return calls_ != nullptr && calls_->Load() != 0;
}

int WebSurface::Version() const {
    if (!IsReady()) return 0;
    if (!std::exchange(is_input_seen_, false)) return calls_->Version();
    try {
        calls_->Call("state");
    } catch (const RuntimeError&) {
        // Where the engine has stopped meanwhile, the document is what was heard of it.
        if (IsReady()) throw;
    }
    return calls_->Version();
}

std::string WebSurface::DocumentHTML() const {
    if (Version() == 0) return source_;
    try {
        return EditedSource();
    } catch (const RuntimeError&) {
        if (IsReady()) throw;
        return source_;
    }
}

std::string WebSurface::EditedSource() const {
    const QVariant given = calls_->Call("html", {heard_.version});
    if (!given.isNull()) {
        heard_.html = FromQt(given.toString());
        heard_.version = calls_->Version();
    }
    if (heard_.base.empty()) heard_.base = FromQt(calls_->Call("base").toString());
    if (html_version_ != heard_.version) {
        html_ = SourceOf(heard_);
        html_version_ = heard_.version;
    }
    return html_;
}

bool WebSurface::IsDirty() const {
    // First: an engine that stops in answering makes the document another one.
    const int version = Version();
    return is_set_ || version != saved_version_;
}

bool WebSurface::Busy() const {
    return busy_ && !busy_since_.hasExpired(kPatienceMilliseconds);
}

void WebSurface::SetSourceCodePreservation(bool on) {
    if (preserve_ != on) html_version_ = 0;
    preserve_ = on;
}

// ---- What the page tells

void WebSurface::NoteLoading(const QWebEngineLoadingInfo& info) {
    // The end of a load that another one has replaced comes too.
    const bool is_ours = info.url().adjusted(QUrl::RemoveFragment) == url_;
    if (!is_ours || info.status() == QWebEngineLoadingInfo::LoadStartedStatus || !busy_) return;
    is_loaded_ = true;
    if (is_script_there_) return NoteReady();
    // Its message is under way still, or it is not there.
    page_->runJavaScript("quorrel.load", QWebEngineScript::ApplicationWorld,
                         [this, load = load_](const QVariant& answer) {
                             if (load != load_ || !busy_) return;
                             if (answer.toInt() == load) return NoteReady();
                             LoadAgain();
                         });
}

void WebSurface::LoadAgain() {
    // After a crash the end of what it broke off comes under our address.
    if (page_->isLoading()) return;
    // A process that has just been started may show the page before it has the script.
    constexpr int kMostTries = 3;
    if (++tries_ >= kMostTries) return EndLoad();
    is_loaded_ = false;
    load_timer_.start();
}

void WebSurface::NoteMessage(const QString& text) {
    if (!text.startsWith(token_)) return;
    const auto message = QJsonDocument::fromJson(text.mid(token_.size()).toUtf8()).object();
    if (message["load"].toInt() != load_) return;
    const QString type = message["type"].toString();
    if (type == "ready") {
        is_script_there_ = true;
        if (is_loaded_) NoteReady();
    }
    if (!IsReady()) return;
    calls_->NoteMessage();
    Events events;
    if (type == "edited") {
        calls_->SetVersion(message["version"].toInt());
    } else if (type == "display") {
        if (!display_timer_.isActive()) display_timer_.start();
    } else if (type == "doubleclick") {
        events.double_click = true;
        Raise(events);
    } else if (type == "copied") {
        copied_ = message["copied"];
    } else if (type == "pasteFiles") {
        QMetaObject::invokeMethod(this, &WebSurface::PasteFiles, Qt::QueuedConnection);
    } else if (type == "link") {
        events.link = QUrl(message["url"].toString());
        Raise(events);
    }
}

void WebSurface::NoteReady() {
    // Also where a load that seemed to have failed comes through after all.
    if (IsReady()) return;
    calls_->SetLoad(load_);
    if (view_->hasFocus()) calls_->Post("prepare", {});
    EndLoad();
}

void WebSurface::EndLoad() {
    busy_ = false;
    // A view that gets the focus with its document sets the caret to the start a moment later; who
    // wants it elsewhere has to come after that.
    constexpr int kMoment = 100;
    QTimer::singleShot(kMoment, this, [this, load = load_] {
        if (load != load_) return;
        if (!keys_back_to_.isNull() && !view_->isVisible()) keys_back_to_->setFocus();
        Events events;
        events.complete = !is_shown_again_;
        events.display = true;
        Raise(events);
    });
}

void WebSurface::FollowLink(const QUrl& url) {
    const std::string path = PathOfUrl(url);
    if (!path.empty() && link_clicked) link_clicked(path, url.fragment());
}

// ---- Events

void WebSurface::Raise(Events events) {
    events_.complete |= events.complete;
    events_.display |= events.display;
    events_.heard |= events.heard;
    events_.double_click |= events.double_click;
    if (events.menu) events_.menu = events.menu;
    if (events.loss) events_.loss = events.loss;
    if (!events.link.isEmpty()) events_.link = events.link;
    QMetaObject::invokeMethod(this, &WebSurface::DeliverEvents, Qt::QueuedConnection);
}

void WebSurface::DeliverEvents() {
    // Within a call they wait for its end.
    if (calls_ && calls_->IsWaiting()) return;
    const Events events = std::exchange(events_, {});
    if (events.complete && DocumentComplete) DocumentComplete();
    if (events.display && DisplayChanged) DisplayChanged();
    if (events.double_click && ondblclick) ondblclick();
    if (events.heard && TextHeard) TextHeard();
    if (events.loss && EngineLost) EngineLost(*events.loss);
    if (!events.link.isEmpty()) FollowLink(events.link);
    if (!events.menu) return;
    if (ShowContextMenu) {
        ShowContextMenu(events.menu->x(), events.menu->y());
    } else {
        ShowOwnMenu(*events.menu);
    }
}

void WebSurface::ShowOwnMenu(const QPoint& place) {
    if (view_.isNull()) return;
    auto* menu = new QMenu(view_);
    menu->setObjectName("TopicMenu");
    menu->setAttribute(Qt::WA_DeleteOnClose);
    const auto add = [&](const QString& text, int command) {
        QAction* action = menu->addAction(text, this, [this, command] {
            if (QueryStatus(command) >= command_status::kEnabled) ExecCommand(command);
        });
        action->setEnabled(QueryStatus(command) >= command_status::kEnabled);
    };
    add("Cu&t", surface_command::DECMD_CUT);
    add("&Copy", surface_command::DECMD_COPY);
    add("&Paste", surface_command::DECMD_PASTE);
    add("Select &All", surface_command::DECMD_SELECTALL);
    menu->popup(view_->mapToGlobal(place));
}

// ---- How the page looks and behaves

void WebSurface::ApplyLook() {
    if (!IsReady()) return;
    try {
        // Waited for: the next click is for the page as it is then.
        calls_->Call("view", {LookForPage()});
    } catch (const RuntimeError&) {
        // The next document is shown that way.
    }
}

void WebSurface::SetBrowseMode(bool on) {
    look_.browse = on;
    ApplyLook();
}

void WebSurface::SetShowBorders(bool on) {
    look_.borders = on;
    ApplyLook();
}

void WebSurface::SetShowDetails(bool on) {
    look_.details = on;
    ApplyLook();
}

void WebSurface::SetSnapToGrid(bool on) {
    look_.grid = on;
    ApplyLook();
}

void WebSurface::SetFocus() {
    if (view_.isNull()) return;
    view_->setFocus();
    // There must be a caret then.
    if (IsReady()) calls_->Post("prepare", {});
}

}  // namespace quorrel
