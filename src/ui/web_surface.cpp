#include "ui/web_surface.hpp"

#include <QLabel>
#include <QStackedWidget>
#include <QWebEngineLoadingInfo>
#include <QWebEngineProfile>
#include <QWebEngineView>
#include <utility>

#include "platform/code_page.hpp"
#include "platform/topic_encoding.hpp"
#include "ui/qt_text.hpp"
#include "ui/topic_page.hpp"
#include "ui/topic_scheme.hpp"
#include "ui/topic_view.hpp"

namespace quorrel {
namespace {

/// A document that is not there by then goes on loading, but nobody waits for it any longer.
constexpr qint64 kPatienceMilliseconds = 15000;

}  // namespace

WebSurface::WebSurface(FileSystem& files)
    : code_page([] { return CodePageOfMachine().number; }),
      files_(files),
      stack_(new QStackedWidget),
      hint_(new QLabel) {
    stack_->setObjectName("TopicArea");
    hint_->setObjectName("TopicHint");
    hint_->setAlignment(Qt::AlignCenter);
    hint_->setWordWrap(true);
    hint_->setMargin(24);
    hint_->setTextFormat(Qt::PlainText);
    stack_->addWidget(hint_);
    ShowHint("Open a project with File > Open Project.");
}

WebSurface::~WebSurface() {
    if (!stack_.isNull() && stack_->parent() == nullptr) delete stack_;
    // A page must not outlive its profile.
    delete page_;
}

QWidget* WebSurface::Widget() const {
    return stack_;
}

QWebEngineView* WebSurface::View() const {
    return view_;
}

void WebSurface::StartEngine() {
    if (!view_.isNull()) return;
    // Without a name it keeps nothing on disk.
    profile_ = std::make_unique<QWebEngineProfile>();
    profile_->setUrlRequestInterceptor(new RequestFilter(profile_.get()));
    const auto document = [this](const QUrl& url) {
        const bool is_open = url.adjusted(QUrl::RemoveFragment) == url_;
        return is_open ? std::optional<std::string>(bytes_) : std::nullopt;
    };
    auto* handler = new TopicSchemeHandler(
        files_, [this] { return code_page(); }, document, profile_.get());
    profile_->installUrlSchemeHandler(kTopicScheme, handler);
    view_ = new TopicView(stack_);
    page_ = new TopicPage(profile_.get(), this);
    page_->link_clicked = [this](const QUrl& url) { FollowLink(url); };
    view_->setPage(page_);
    connect(page_, &QWebEnginePage::loadingChanged, this, &WebSurface::NoteLoading);
    connect(page_, &QWebEnginePage::renderProcessTerminated, this, &WebSurface::NoteCrash);
    stack_->addWidget(view_);
}

void WebSurface::LoadDocument(std::string_view path) {
    bytes_ = files_.ReadFile(path);
    path_ = path;
    base_url_.clear();
    Show();
}

void WebSurface::SetDocumentHTML(std::string_view html) {
    bytes_ = "\xEF\xBB\xBF";
    bytes_ += html;
    base_url_.clear();
    Show();
}

void WebSurface::Show() {
    if (stack_.isNull()) return;
    StartEngine();
    url_ = UrlOfTopic(path_, ++load_);
    QUrl shown = url_;
    if (!next_bookmark_.isEmpty()) shown.setFragment(std::exchange(next_bookmark_, {}));
    busy_ = true;
    busy_since_.start();
    stack_->setCurrentWidget(view_);
    page_->Show(shown);
}

void WebSurface::SaveDocument(std::string_view path) {
    files_.WriteFile(path, bytes_);
    path_ = path;
}

void WebSurface::NewDocument(std::string_view why) {
    bytes_.clear();
    path_.clear();
    base_url_.clear();
    next_bookmark_.clear();
    url_.clear();
    busy_ = false;
    if (!page_.isNull()) page_->Show(BlankUrl());
    ShowHint(ToQt(why));
}

void WebSurface::ShowHint(const QString& text) {
    if (stack_.isNull()) return;
    hint_->setText(text);
    stack_->setCurrentWidget(hint_);
}

std::string WebSurface::DocumentHTML() const {
    return DecodeText(bytes_, TopicEncoding(bytes_, code_page()));
}

bool WebSurface::Busy() const {
    return busy_ && !busy_since_.hasExpired(kPatienceMilliseconds);
}

void WebSurface::NoteLoading(const QWebEngineLoadingInfo& info) {
    // The end of a load that another one has replaced comes too.
    const bool is_ours = info.url().adjusted(QUrl::RemoveFragment) == url_;
    if (is_ours && info.status() != QWebEngineLoadingInfo::LoadStartedStatus) busy_ = false;
}

void WebSurface::NoteCrash() {
    busy_ = false;
    ShowHint("The topic cannot be shown: the web engine stopped. Open the topic again to retry.");
}

void WebSurface::FollowLink(const QUrl& url) {
    const std::string path = PathOfUrl(url);
    if (!path.empty() && link_clicked) link_clicked(path, url.fragment());
}

}  // namespace quorrel
