#include "ui/topic_page.hpp"

#include <QMetaObject>
#include <QWebEngineNewWindowRequest>
#include <QWebEngineSettings>
#include <utility>

#include "ui/topic_scheme.hpp"

namespace quorrel {

void RequestFilter::interceptRequest(QWebEngineUrlRequestInfo& info) {
    const QString scheme = info.requestUrl().scheme();
    if (scheme != kTopicScheme && scheme != "data") info.block(true);
}

void Restrict(QWebEngineSettings& settings) {
    using Settings = QWebEngineSettings;
    for (const auto attribute :
         {Settings::JavascriptCanOpenWindows, Settings::JavascriptCanAccessClipboard,
          Settings::PluginsEnabled, Settings::PdfViewerEnabled,
          Settings::LocalContentCanAccessRemoteUrls, Settings::LocalContentCanAccessFileUrls,
          Settings::HyperlinkAuditingEnabled, Settings::DnsPrefetchEnabled,
          Settings::FullScreenSupportEnabled, Settings::ScreenCaptureEnabled,
          Settings::WebGLEnabled, Settings::AutoLoadIconsForPage, Settings::ErrorPageEnabled,
          Settings::FocusOnNavigationEnabled, Settings::NavigateOnDropEnabled}) {
        settings.setAttribute(attribute, false);
    }
}

TopicPage::TopicPage(QWebEngineProfile* profile, QObject* parent)
    : QWebEnginePage(profile, parent) {
    Restrict(*settings());
    settings()->setAttribute(QWebEngineSettings::JavascriptEnabled, false);
    settings()->setAttribute(QWebEngineSettings::LocalStorageEnabled, false);
    settings()->setUnknownUrlSchemePolicy(QWebEngineSettings::DisallowUnknownUrlSchemes);
    connect(this, &QWebEnginePage::newWindowRequested, this,
            [this](QWebEngineNewWindowRequest& request) {
                if (request.isUserInitiated() && link_clicked) link_clicked(request.requestedUrl());
            });
}

void TopicPage::Show(const QUrl& url) {
    expected_ = url;
    // A refused navigation may still be on its way out; a load that begins meanwhile would not
    // end before the engine came back to its own event loop.
    triggerAction(Stop);
    load(url);
}

bool TopicPage::IsOwnLoad(const QUrl& url) {
    // Once only: a page that sends itself to its own address again would do so for ever.
    if (expected_.isEmpty() || url != expected_) return false;
    expected_.clear();
    return true;
}

bool TopicPage::MayGoTo(const QUrl& url, NavigationType type, bool is_main) {
    if (!is_main) return url.scheme() == kTopicScheme || url == QUrl("about:blank");
    return type != NavigationTypeLinkClicked && IsOwnLoad(url);
}

bool TopicPage::acceptNavigationRequest(const QUrl& url, NavigationType type, bool is_main) {
    if (MayGoTo(url, type, is_main)) return true;
    // The engine waits for the answer, and what opens a topic has to wait for the engine.
    const bool is_link = is_main && type == NavigationTypeLinkClicked;
    const auto report = [this, target = url, is_link] {
        emit Refused(target);
        if (is_link && link_clicked) link_clicked(target);
    };
    QMetaObject::invokeMethod(this, report, Qt::QueuedConnection);
    return false;
}

void TopicPage::javaScriptConsoleMessage(JavaScriptConsoleMessageLevel, const QString& text, int,
                                         const QString&) {
    if (console_written) console_written(text);
}

}  // namespace quorrel
