// The URLs under which the web engine gets topics and what belongs to them.
#pragma once

#include <QUrl>
#include <QWebEngineUrlSchemeHandler>

#include <functional>
#include <optional>
#include <string>

#include "platform/file_system.hpp"

namespace quorrel {

inline constexpr const char* kTopicScheme = "quorrel";

/// Makes the scheme known to the engine. Before the application object is made.
void RegisterTopicScheme();

/// "quorrel://topic/Z:/folder/a.htm" for a Windows path, so that relative references find their
/// files. `load` makes the URLs of two loads differ.
[[nodiscard]] QUrl UrlOfTopic(const std::string& path, int load);
/// The Windows path of such a URL; empty for another one.
[[nodiscard]] std::string PathOfUrl(const QUrl& url);
/// The same topic for an engine that shall see all of it anew, with the files beside it. `number`
/// makes the hosts of two loads differ.
[[nodiscard]] QUrl OnHostOfItsOwn(QUrl url, int number);
/// A URL of an empty document.
[[nodiscard]] QUrl BlankUrl();

/// UTF-8 HTML as the engine is to have it: with a byte-order mark, which overrules whatever the
/// text says of its encoding.
[[nodiscard]] QByteArray HtmlForEngine(const std::string& text);

/// Answers the engine from our files.
class TopicSchemeHandler : public QWebEngineUrlSchemeHandler {
    Q_OBJECT
  public:
    /// `document` gives the text of the document that is loaded under a URL, nothing for others.
    using Document = std::function<std::optional<std::string>(const QUrl&)>;
    TopicSchemeHandler(FileSystem& files, std::function<int()> code_page, Document document,
                       QObject* parent);

    void requestStarted(QWebEngineUrlRequestJob* job) override;

  private:
    FileSystem& files_;
    std::function<int()> code_page_;
    Document document_;
};

}  // namespace quorrel
