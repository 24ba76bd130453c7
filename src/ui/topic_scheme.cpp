#include "ui/topic_scheme.hpp"

#include <QBuffer>
#include <QMimeDatabase>
#include <QWebEngineUrlRequestJob>
#include <QWebEngineUrlScheme>

#include <new>

#include "platform/failure.hpp"
#include "platform/text.hpp"
#include "platform/topic_encoding.hpp"
#include "ui/qt_text.hpp"

namespace quorrel {
namespace {

const QString kTopicHost = "topic";
const QString kBlankHost = "blank";

void Reply(QWebEngineUrlRequestJob* job, const QByteArray& type, const QByteArray& bytes) {
    auto* buffer = new QBuffer(job);
    buffer->setData(bytes);
    buffer->open(QIODevice::ReadOnly);
    job->reply(type, buffer);
}

}  // namespace

void RegisterTopicScheme() {
    QWebEngineUrlScheme scheme(kTopicScheme);
    scheme.setSyntax(QWebEngineUrlScheme::Syntax::Host);
    scheme.setFlags(QWebEngineUrlScheme::SecureScheme);
    QWebEngineUrlScheme::registerScheme(scheme);
}

QUrl UrlOfTopic(const std::string& path, int load) {
    QUrl url;
    url.setScheme(kTopicScheme);
    url.setHost(kTopicHost);
    // Encoded by hand: a "%" or "#" in a name must not be taken for anything else.
    const QByteArray name = QByteArray::fromStdString(ReplaceAll(path, "\\", "/"));
    url.setPath("/" + QString::fromLatin1(name.toPercentEncoding("/:")), QUrl::StrictMode);
    url.setQuery(QString::number(load));
    return url;
}

std::string PathOfUrl(const QUrl& url) {
    const QString host = url.host();
    const bool is_topic = host == kTopicHost || host.endsWith("." + kTopicHost);
    if (url.scheme() != kTopicScheme || !is_topic) return {};
    const QByteArray encoded = url.path(QUrl::FullyEncoded).toLatin1();
    const std::string path = QByteArray::fromPercentEncoding(encoded).toStdString();
    return ReplaceAll(std::string_view(path).substr(path.starts_with('/') ? 1 : 0), "/", "\\");
}

QUrl OnHostOfItsOwn(QUrl url, int number) {
    url.setHost(QString::number(number) + "." + kTopicHost);
    return url;
}

QUrl BlankUrl() {
    QUrl url;
    url.setScheme(kTopicScheme);
    url.setHost(kBlankHost);
    url.setPath("/");
    return url;
}

QByteArray MimeTypeOf(std::string_view path) {
    const std::string name = LowerAscii(AfterLast(path, '\\'));
    for (const char* ending : {".htm", ".html", ".xhtml", ".shtml", ".tmp"}) {
        if (name.ends_with(ending)) return "text/html";
    }
    if (name.ends_with(".css")) return "text/css";
    static const QMimeDatabase types;
    return types.mimeTypeForFile(ToQt(name), QMimeDatabase::MatchExtension).name().toLatin1();
}

QByteArray HtmlForEngine(const std::string& text) {
    return "\xEF\xBB\xBF" + QByteArray::fromStdString(text);
}

TopicSchemeHandler::TopicSchemeHandler(FileSystem& files, std::function<int()> code_page,
                                       Document document, QObject* parent)
    : QWebEngineUrlSchemeHandler(parent),
      files_(files),
      code_page_(std::move(code_page)),
      document_(std::move(document)) {}

void TopicSchemeHandler::requestStarted(QWebEngineUrlRequestJob* job) {
    const QUrl url = job->requestUrl();
    if (job->requestMethod() != "GET") return job->fail(QWebEngineUrlRequestJob::RequestDenied);
    if (url.host() == kBlankHost) return Reply(job, "text/html", {});
    // Nothing may be raised through the engine, which called this.
    try {
        if (const auto text = document_(url)) return Reply(job, "text/html", HtmlForEngine(*text));
        if (may_serve && !may_serve(url)) return job->fail(QWebEngineUrlRequestJob::RequestDenied);
        ReplyWithFile(job, PathOfUrl(url));
    } catch (const RuntimeError&) {
        job->fail(QWebEngineUrlRequestJob::UrlNotFound);
    } catch (const std::bad_alloc&) {
        job->fail(QWebEngineUrlRequestJob::RequestFailed);
    }
}

void TopicSchemeHandler::ReplyWithFile(QWebEngineUrlRequestJob* job, const std::string& path) {
    const std::string bytes = files_.ReadFile(path);
    const QByteArray type = MimeTypeOf(path);
    if (type != "text/html") {
        if (served && type == "text/css") served(job->requestUrl(), bytes, true);
        return Reply(job, type, QByteArray::fromStdString(bytes));
    }
    const std::string text = DecodeText(bytes, TopicEncoding(bytes, code_page_()));
    if (served) served(job->requestUrl(), text, false);
    Reply(job, type, HtmlForEngine(text));
}

}  // namespace quorrel
