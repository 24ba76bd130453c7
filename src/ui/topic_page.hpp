// The page of the web engine that shows a topic, and what it may do.
#pragma once

#include <QWebEnginePage>
#include <QWebEngineUrlRequestInterceptor>

#include <functional>

class QWebEngineSettings;

namespace quorrel {

/// Lets nothing through but our own scheme and data inside the page.
class RequestFilter : public QWebEngineUrlRequestInterceptor {
    Q_OBJECT
  public:
    using QWebEngineUrlRequestInterceptor::QWebEngineUrlRequestInterceptor;
    void interceptRequest(QWebEngineUrlRequestInfo& info) override;
};

/// Switches off what no page of a topic may do, whether its scripts run or not.
void Restrict(QWebEngineSettings& settings);

/// Shows what it is told to and goes nowhere by itself: a link is only reported.
class TopicPage : public QWebEnginePage {
    Q_OBJECT
  public:
    TopicPage(QWebEngineProfile* profile, QObject* parent);

    void Show(const QUrl& url);

    /// The user clicked a link.
    std::function<void(const QUrl&)> link_clicked;
    /// What the page writes to its console. Nothing of it is shown.
    std::function<void(const QString& text)> console_written;

  signals:
    /// The page wanted to go elsewhere and did not.
    void Refused(const QUrl& url);

  protected:
    bool acceptNavigationRequest(const QUrl& url, NavigationType type, bool is_main) override;
    void javaScriptConsoleMessage(JavaScriptConsoleMessageLevel level, const QString& text,
                                  int line, const QString& source) override;

  private:
    bool MayGoTo(const QUrl& url, NavigationType type, bool is_main);
    bool IsOwnLoad(const QUrl& url);

    QUrl expected_;  // the load that has been asked for and not yet been seen
};

}  // namespace quorrel
