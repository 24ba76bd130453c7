#include "ui/preview_page.hpp"

#include <QMetaObject>
#include <QPointer>
#include <QWebEngineNewWindowRequest>
#include <QWebEngineSettings>
#include <QWebEngineView>

#include "ui/topic_page.hpp"
#include "ui/topic_scheme.hpp"

namespace quorrel {
namespace {

/// How long after a click a link may still lead out, in milliseconds.
constexpr qint64 kInputHolds = 3000;

bool IsOurs(const QUrl& url) {
    return url.scheme() == kTopicScheme;
}

bool LeadsOut(const QUrl& url) {
    const QString scheme = url.scheme();
    return scheme == "http" || scheme == "https" || scheme == "mailto";
}

}  // namespace

PreviewPage::PreviewPage(QWebEngineProfile* profile, QObject* parent)
    : QWebEnginePage(profile, parent) {
    using Settings = QWebEngineSettings;
    Restrict(*settings());
    settings()->setAttribute(Settings::JavascriptEnabled, true);
    settings()->setAttribute(Settings::WebRTCPublicInterfacesOnly, true);
    settings()->setUnknownUrlSchemePolicy(Settings::DisallowUnknownUrlSchemes);
    connect(this, &QWebEnginePage::newWindowRequested, this, &PreviewPage::NoteNewWindow);
    connect(this, &QWebEnginePage::featurePermissionRequested, this,
            [this](const QUrl& origin, Feature feature) {
                setFeaturePermission(origin, feature, PermissionDeniedByUser);
            });
}

void PreviewPage::NoteInput() {
    last_input_.start();
    dialogs_ = 0;
}

void PreviewPage::ForgetDialogs() {
    dialogs_ = 0;
    is_silenced_ = false;
}

bool PreviewPage::acceptNavigationRequest(const QUrl& url, NavigationType type, bool is_main) {
    if (IsOurs(url)) {
        if (opening) opening(url, is_main);
        return true;
    }
    // Frames and windows that a script fills.
    if (url.scheme() == "about") return true;
    if (url.scheme() == "data") return !is_main;
    if (type == NavigationTypeLinkClicked) OfferExternal(url);
    return false;
}

void PreviewPage::OfferExternal(const QUrl& url) {
    // A script can click a link too. Each click of the user is good for one.
    if (!LeadsOut(url) || !last_input_.isValid() || last_input_.hasExpired(kInputHolds)) return;
    last_input_.invalidate();
    // The engine waits for the answer, and the other program may take its time.
    const auto open = [this, url] {
        if (open_external) open_external(url);
    };
    QMetaObject::invokeMethod(this, open, Qt::QueuedConnection);
}

bool PreviewPage::MayOpen(const QUrl& url) {
    return ShowDialog(ScriptDialog::Kind::kConfirm,
                      "A script of this page wants to open an address in the browser:\n\n" +
                          url.toString(QUrl::FullyEncoded),
                      nullptr);
}

void PreviewPage::NoteNewWindow(QWebEngineNewWindowRequest& request) {
    if (!request.isUserInitiated()) return;
    const QUrl url = request.requestedUrl();
    if (LeadsOut(url)) return OfferExternal(url);
    const bool is_shown = IsOurs(url) || url.isEmpty() || url.scheme() == "about";
    if (is_shown && open_window) open_window(request);
}

void PreviewPage::javaScriptAlert(const QUrl&, const QString& message) {
    ShowDialog(ScriptDialog::Kind::kAlert, message, nullptr);
}

bool PreviewPage::javaScriptConfirm(const QUrl&, const QString& message) {
    return ShowDialog(ScriptDialog::Kind::kConfirm, message, nullptr);
}

bool PreviewPage::javaScriptPrompt(const QUrl&, const QString& message, const QString& proposal,
                                   QString* answer) {
    *answer = proposal;
    return ShowDialog(ScriptDialog::Kind::kPrompt, message, answer);
}

bool PreviewPage::ShowDialog(ScriptDialog::Kind kind, const QString& message, QString* answer) {
    QWidget* view = QWebEngineView::forPage(this);
    // Nobody who works elsewhere wants to hear from the page that was looked at before.
    if (is_silenced_ || view == nullptr || !view->isVisible()) return false;
    ++dialogs_;
    const QPointer<PreviewPage> self = this;
    const QPointer<ScriptDialog> dialog = new ScriptDialog(kind, message, dialogs_ > 1, view);
    if (answer != nullptr) dialog->SetAnswer(*answer);
    const bool is_accepted = dialog->exec() == QDialog::Accepted;
    if (dialog.isNull() || self.isNull()) return false;
    if (answer != nullptr) *answer = dialog->Answer();
    is_silenced_ = dialog->IsSuppressing();
    delete dialog;
    return is_accepted;
}

}  // namespace quorrel
