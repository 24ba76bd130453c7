// A page of the web engine in which scripts run, and what they may do.
#pragma once

#include <QElapsedTimer>
#include <QUrl>
#include <QWebEnginePage>

#include <functional>

#include "ui/script_dialog.hpp"

namespace quorrel {

/// Goes from topic to topic by itself. What lies outside is reported, and only if the user has
/// just clicked: a script alone gets nothing out.
class PreviewPage : public QWebEnginePage {
    Q_OBJECT
  public:
    PreviewPage(QWebEngineProfile* profile, QObject* parent);

    /// The user does something in the page.
    void NoteInput();
    /// The program goes elsewhere: a page that was silenced is gone.
    void ForgetDialogs();

    /// Asks the user about an address that a script has made.
    bool MayOpen(const QUrl& url);

    /// A document of ours is about to be asked for.
    std::function<void(const QUrl&, bool is_main)> opening;
    /// The user clicked a link that leads out.
    std::function<void(const QUrl&)> open_external;
    /// The user's click opens a window.
    std::function<void(QWebEngineNewWindowRequest&)> open_window;

  protected:
    bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool is_main) override;
    void javaScriptAlert(const QUrl& origin, const QString& message) override;
    bool javaScriptConfirm(const QUrl& origin, const QString& message) override;
    bool javaScriptPrompt(const QUrl& origin, const QString& message, const QString& proposal,
                          QString* answer) override;

  private:
    void OfferExternal(const QUrl& url);
    void NoteNewWindow(QWebEngineNewWindowRequest& request);
    bool ShowDialog(ScriptDialog::Kind kind, const QString& message, QString* answer);

    QElapsedTimer last_input_;  // not valid once the input has been used up
    int dialogs_ = 0;           // shown since the user last did something
    bool is_silenced_ = false;
};

}  // namespace quorrel
