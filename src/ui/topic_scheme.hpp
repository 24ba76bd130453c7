// The URLs under which the web engine gets topics and what belongs to them.
#pragma once

#include <QUrl>
#include <QWebEngineUrlSchemeHandler>

#include <functional>
#include <optional>
#include <string>
#include <string_view>

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

/// The type of a file, by its name.
[[nodiscard]] QByteArray MimeTypeOf(std::string_view path);

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

    /// Says no to a file that the page must not have; unset, it may have all.
    std::function<bool(const QUrl&)> may_serve;
    /// Hears the source of each page and style sheet that is served.
    std::function<void(const QUrl&, std::string_view source, bool is_style_sheet)> served;

    void requestStarted(QWebEngineUrlRequestJob* job) override;

  private:
    void ReplyWithFile(QWebEngineUrlRequestJob* job, const std::string& path);

    FileSystem& files_;
    std::function<int()> code_page_;
    Document document_;
};

}  // namespace quorrel
