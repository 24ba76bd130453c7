#include "ui/preview_pane.hpp"

#include <QDesktopServices>
#include <QLabel>
#include <QStackedWidget>
#include <QWebEngineHistory>
#include <QWebEngineNewWindowRequest>
#include <QWebEngineProfile>

#include <algorithm>

#include "platform/code_page.hpp"
#include "platform/failure.hpp"
#include "platform/text.hpp"
#include "platform/topic_encoding.hpp"
#include "ui/preview_page.hpp"
#include "ui/preview_view.hpp"
#include "ui/qt_text.hpp"
#include "ui/topic_page.hpp"
#include "ui/topic_scheme.hpp"

namespace quorrel {
namespace {

constexpr const char* kWindowName = "PreviewWindow";
constexpr int kStepsBack = 1000;

std::string PageWith(const QString& text) {
    return FromQt(
        "<!DOCTYPE html><html><head><title>Quorrel</title><style>"
        ":root{color-scheme:light dark}body{font:1em sans-serif;margin:2em;"
        "overflow-wrap:anywhere}</style></head><body><p>" +
        text + "</p></body></html>");
}

QUrl WithoutBookmark(const QUrl& url) {
    return url.adjusted(QUrl::RemoveFragment);
}

/// Whether the target is no file: "http://www.example.org", unlike "Z:\\a.htm".
bool IsAddress(std::string_view target) {
    const std::size_t colon = target.find(':');
    return colon != npos && colon > 1 && target.substr(0, colon).find_first_of("\\/#") == npos;
}

std::string PageForAddress(const std::string& path) {
    const QString address = ToQt(ReplaceAll(path, "\\", "/")).toHtmlEscaped();
    return PageWith("The preview has no network. Open <a href=\"" + address + "\">" + address +
                    "</a> in the browser.");
}

}  // namespace

PreviewPane::PreviewPane(FileSystem& files)
    : code_page([] { return CodePageOfMachine().number; }),
      open_external([](const QUrl& url) { QDesktopServices::openUrl(url); }),
      files_(files),
      page_files_(files),
      stack_(new QStackedWidget),
      hint_(new QLabel) {
    stack_->setObjectName("PreviewArea");
    hint_->setObjectName("PreviewHint");
    hint_->setAlignment(Qt::AlignCenter);
    hint_->setWordWrap(true);
    hint_->setMargin(24);
    hint_->setTextFormat(Qt::PlainText);
    stack_->addWidget(hint_);
    page_files_.belongs = [this](const std::string& path) { return belongs && belongs(path); };
}

PreviewPane::~PreviewPane() {
    // Who could tell may be gone, and a page gets nothing any more.
    belongs = nullptr;
    // A page must not outlive its profile.
    if (!stack_.isNull()) qDeleteAll(stack_->findChildren<QWidget*>(kWindowName));
    delete page_;
    if (!stack_.isNull() && stack_->parent() == nullptr) delete stack_;
    // Its end may still serve requests, which need what is to go after it.
    profile_.reset();
}

QWidget* PreviewPane::Widget() const {
    return stack_;
}

QWebEngineView* PreviewPane::View() const {
    return view_;
}

void PreviewPane::StartEngine() {
    if (!view_.isNull()) return;
    // Without a name it keeps nothing on disk.
    profile_ = std::make_unique<QWebEngineProfile>();
    profile_->setUrlRequestInterceptor(new RequestFilter(profile_.get()));
    auto* handler = new TopicSchemeHandler(
        files_, [this] { return code_page(); }, [this](const QUrl& url) { return Substitute(url); },
        profile_.get());
    handler->may_serve = [this](const QUrl& url) { return page_files_.MayServe(url); };
    handler->served = [this](const QUrl& url, std::string_view source, bool is_style_sheet) {
        page_files_.NoteServed(url, source, is_style_sheet);
    };
    profile_->installUrlSchemeHandler(kTopicScheme, handler);
    view_ = new PreviewView(stack_);
    view_->setObjectName("WebBrowser1");
    view_->setAccessibleName("Preview");
    stack_->addWidget(view_);
    MakePage();
}

void PreviewPane::MakePage() {
    delete page_;
    page_ = new PreviewPage(profile_.get(), this);
    Connect(*page_);
    connect(page_, &QWebEnginePage::renderProcessTerminated, this, &PreviewPane::NoteCrash);
    view_->setPage(page_);
}

void PreviewPane::Connect(PreviewPage& page) {
    page.opening = [this](const QUrl& url, bool is_main) {
        if (is_main) opening_.clear();
        opening_.insert(WithoutBookmark(url));
    };
    page.open_external = [this, &page](const QUrl& url) {
        if (IsInSource(page.url(), url) || page.MayOpen(url)) open_external(url);
    };
    page.open_window = [this, &page](QWebEngineNewWindowRequest& request) {
        OpenWindow(page, request);
    };
}

void PreviewPane::Navigate(std::string_view target) {
    if (stack_.isNull()) return;
    StartEngine();
    stack_->setCurrentWidget(view_);
    page_->ForgetDialogs();
    page_files_.Forget();
    std::string path(target);
    QString bookmark;
    // A "#" may be part of the file's name.
    const std::size_t mark = target.rfind('#');
    if (mark != npos && !IsAddress(target) && !files_.FileExists(target)) {
        path = target.substr(0, mark);
        bookmark = ToQt(target.substr(mark + 1));
    }
    // On the same host the engine would take style sheets and pictures from its memory, and wait
    // for a script of the page before that does not end.
    QUrl url = OnHostOfItsOwn(UrlOfTopic(path, 1), ++load_);
    if (!bookmark.isEmpty()) url.setFragment(bookmark);
    page_->load(url);
}

void PreviewPane::GoBack() {
    if (page_.isNull()) return;
    const QUrl shown = page_->url();
    const auto is_shown = [&](const QUrl& url) {
        return url.host() != shown.host() && PathOfUrl(url) == PathOfUrl(shown) &&
               url.fragment() == shown.fragment();
    };
    // A topic that was tried out several times in a row is one step.
    const QList<QWebEngineHistoryItem> before = page_->history()->backItems(kStepsBack);
    for (auto item = before.rbegin(); item != before.rend(); ++item) {
        if (!is_shown(item->url())) return page_->history()->goToItem(*item);
    }
}

void PreviewPane::Refresh() {
    if (page_.isNull()) return;
    stack_->setCurrentWidget(view_);
    page_->ForgetDialogs();
    page_->triggerAction(QWebEnginePage::ReloadAndBypassCache);
}

void PreviewPane::Stop() {
    if (!page_.isNull()) page_->triggerAction(QWebEnginePage::Stop);
}

std::string PreviewPane::LinksFrom(const std::string& path) const {
    return links_from ? links_from(path) : std::string();
}

void PreviewPane::OpenWindow(const PreviewPage& from, QWebEngineNewWindowRequest& request) {
    const std::string wanted = PathOfUrl(request.requestedUrl());
    if (!wanted.empty() && !LinksFrom(PathOfUrl(from.url())).empty()) {
        const QString bookmark = request.requestedUrl().fragment(QUrl::FullyDecoded);
        const std::string target = wanted + (bookmark.isEmpty() ? "" : "#" + FromQt(bookmark));
        // The engine waits for the answer, and may not be sent elsewhere meanwhile.
        QMetaObject::invokeMethod(
            this, [this, target] { Navigate(target); }, Qt::QueuedConnection);
        return;
    }
    auto* window = new PreviewView(stack_);
    window->setWindowFlag(Qt::Window);
    window->setAttribute(Qt::WA_DeleteOnClose);
    window->setObjectName(kWindowName);
    window->setWindowTitle("Quorrel");
    auto* page = new PreviewPage(profile_.get(), window);
    Connect(*page);
    window->setPage(page);
    connect(page, &QWebEnginePage::titleChanged, window, &QWidget::setWindowTitle);
    connect(page, &QWebEnginePage::windowCloseRequested, window, &QWidget::close);
    connect(page, &QWebEnginePage::geometryChangeRequested, window,
            [window](const QRect& place) { window->resize(place.size()); });
    const QSize size = request.requestedGeometry().size();
    window->resize(size.isEmpty() ? QSize(480, 360) : size);
    request.openIn(page);
    window->show();
}

void PreviewPane::NoteCrash() {
    if (stack_.isNull()) return;
    hint_->setText("The preview stopped. Open the topic again to retry.");
    stack_->setCurrentWidget(hint_);
}

bool PreviewPane::IsInSource(const QUrl& topic, const QUrl& address) {
    try {
        const std::string bytes = files_.ReadFile(PathOfUrl(topic));
        const TextEncoding encoding = TopicEncoding(bytes, code_page());
        const QString text =
            ToQt(DecodeText(bytes, encoding)).replace("&amp;", "&", Qt::CaseInsensitive);
        for (const auto form : {QUrl::PrettyDecoded, QUrl::FullyEncoded}) {
            QString written = address.toString(form);
            // "http://www.example.org" has got a "/".
            if (written.endsWith('/')) written.chop(1);
            if (text.contains(written, Qt::CaseInsensitive)) return true;
        }
    } catch (const RuntimeError&) {
        return IsAddress(PathOfUrl(topic));  // the page for an address is ours
    }
    return false;
}

std::string PreviewPane::WithLinksFrom(const std::string& folder, const std::string& path) {
    const std::string bytes = files_.ReadFile(path);
    std::string text = DecodeText(bytes, TopicEncoding(bytes, code_page()));
    // Behind the style sheet, which is beside the document.
    const std::size_t end_of_head = std::min(FindIgnoringAsciiCase(text, "</HEAD"), text.size());
    const QString base = UrlOfTopic(folder + "\\", 0).path(QUrl::FullyEncoded);
    return text.insert(end_of_head, "<base href=\"" + FromQt(base) + "\">");
}

std::optional<std::string> PreviewPane::Substitute(const QUrl& url) {
    // A picture or a script that is missing stays missing.
    if (!opening_.remove(WithoutBookmark(url))) return std::nullopt;
    const std::string path = PathOfUrl(url);
    if (IsAddress(path)) return PageForAddress(path);
    const QString name = ToQt(files_.NativePath(path)).toHtmlEscaped();
    if (!page_files_.MayServe(url)) {
        return PageWith("The file " + name +
                        " does not belong to the project. The preview shows no other files.");
    }
    try {
        (void)files_.ReadFileHead(path, 0);
        const std::string folder = LinksFrom(path);
        if (folder.empty()) return std::nullopt;
        return WithLinksFrom(folder, path);
    } catch (const RuntimeError&) {
        return PageWith("The file " + name + " cannot be found.");
    }
}

}  // namespace quorrel
