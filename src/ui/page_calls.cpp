#include "ui/page_calls.hpp"

#include <QJsonDocument>
#include <QTimer>
#include <QWebEnginePage>
#include <QWebEngineScript>
#include <memory>

#include "platform/failure.hpp"
#include "ui/qt_text.hpp"

namespace quorrel {
namespace {

/// How long a page may take for its answer: the longest documents need a second.
constexpr int kPatienceMilliseconds = 15000;

struct Reply {
    QVariant value;
    bool is_there = false;
    QPointer<QEventLoop> loop;
};

QString Json(const QJsonArray& values) {
    return QString::fromUtf8(QJsonDocument(values).toJson(QJsonDocument::Compact));
}

[[noreturn]] void RaiseFrom(const QVariantMap& reply) {
    const int number = reply.value("error").toInt();
    const std::string text = FromQt(reply.value("text").toString());
    if (text.empty()) throw RuntimeError(number);
    throw RuntimeError(number, text);
}

}  // namespace

PageCalls::PageCalls(QWebEnginePage* page, QObject* parent) : QObject(parent), page_(page) {
    connect(page, &QWebEnginePage::renderProcessTerminated, this, &PageCalls::Ended);
    connect(page, &QObject::destroyed, this, &PageCalls::Ended);
}

void PageCalls::SetLoad(int load) {
    load_ = load;
    version_ = 0;
    ++count_;
    released_.clear();
    emit Ended();
}

QString PageCalls::Code(const char* name, const QJsonArray& arguments) {
    QJsonArray released;
    for (const int object : std::exchange(released_, {})) released.append(object);
    return QStringLiteral("quorrel.call(%1,'%2',%3,%4)")
        .arg(QString::number(load_), QLatin1String(name), Json(arguments), Json(released));
}

QVariant PageCalls::Run(const QString& code) {
    const auto reply = std::make_shared<Reply>();
    QEventLoop loop;
    reply->loop = &loop;
    connect(this, &PageCalls::Ended, &loop, &QEventLoop::quit);
    QTimer::singleShot(kPatienceMilliseconds, &loop, &QEventLoop::quit);
    page_->runJavaScript(code, QWebEngineScript::ApplicationWorld, [reply](const QVariant& value) {
        reply->value = value;
        reply->is_there = true;
        if (!reply->loop.isNull()) reply->loop->quit();
    });
    // Input that came meanwhile could change what the caller is in the middle of.
    if (!reply->is_there) loop.exec(QEventLoop::ExcludeUserInputEvents);
    return reply->value;
}

QVariant PageCalls::Call(const char* name, const QJsonArray& arguments) {
    if (load_ == 0 || page_.isNull()) throw RuntimeError(run_time_error::kObjectNotSet);
    const QPointer<PageCalls> self = this;
    const int load = load_;
    ++count_;
    ++waiting_;
    const QVariantMap reply = Run(Code(name, arguments)).toMap();
    if (self.isNull()) throw RuntimeError(run_time_error::kDeviceError);
    if (--waiting_ == 0) emit Idle();
    if (reply.isEmpty()) {
        throw RuntimeError(run_time_error::kDeviceError, "The web engine does not answer.");
    }
    if (load == load_ && reply.contains("version")) SetVersion(reply.value("version").toInt());
    if (reply.contains("error")) RaiseFrom(reply);
    return reply.value("result");
}

QVariant PageCalls::CallFor(int load, const char* name, const QJsonArray& arguments) {
    if (load != load_) throw RuntimeError(run_time_error::kObjectNotSet);
    return Call(name, arguments);
}

void PageCalls::SetVersion(int version) {
    if (std::exchange(version_, version) != version) emit Edited();
}

void PageCalls::Ask(const char* name, const QJsonArray& arguments,
                    std::function<void(const QVariant& result, int version)> take) {
    if (load_ == 0 || page_.isNull()) return;
    const auto answer = [self = QPointer<PageCalls>(this), load = load_,
                         take = std::move(take)](const QVariant& given) {
        const QVariantMap reply = given.toMap();
        if (self.isNull() || load != self->load_ || !reply.contains("result")) return;
        take(reply.value("result"), reply.value("version").toInt());
    };
    page_->runJavaScript(Code(name, arguments), QWebEngineScript::ApplicationWorld, answer);
}

void PageCalls::Post(const char* name, const QJsonArray& arguments) {
    if (load_ == 0 || page_.isNull()) return;
    ++count_;
    page_->runJavaScript(Code(name, arguments), QWebEngineScript::ApplicationWorld);
}

void PageCalls::Release(int load, int object) {
    if (load == load_ && load != 0) released_.push_back(object);
}

}  // namespace quorrel
