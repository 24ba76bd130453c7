#include "ui/engine_page.hpp"

#include <QCoreApplication>
#include <QDeadlineTimer>
#include <QTimer>
#include <QWebEngineLoadingInfo>
#include <QWebEngineProfile>
#include <QWebEngineScript>

#include "ui/topic_page.hpp"
#include "ui/topic_scheme.hpp"

namespace quorrel::test {
namespace {

const char* const kSerialise = R"((() => {
    const doctype = it => '<!DOCTYPE ' + it.name +
        (it.publicId ? ' PUBLIC "' + it.publicId + '"' : it.systemId ? ' SYSTEM' : '') +
        (it.systemId ? ' "' + it.systemId + '"' : '') + '>';
    return [...document.childNodes].map(node =>
        node.nodeType === 10 ? doctype(node) :
        node.nodeType === 8 ? '<!--' + node.data + '-->' :
        node.nodeType === 7 ? '<?' + node.target + ' ' + node.data + '>' :
        node.outerHTML).join('');
})())";

const char* const kContents = R"((() => {
    const attributes = it => [...it.attributes].map(a => a.name + '=' + a.value).sort().join(' ');
    const text = node => node.nodeType === 3 ? node.data.replace(/[ \t\n\r\f]+/g, '') :
        node.nodeType === 8 ? '<!--' + node.data + '-->' :
        node.nodeType === 10 ? '<!' + node.name + ' ' + node.publicId + ' ' + node.systemId + '>' :
        '<' + node.nodeName + ' ' + attributes(node) + '>' + all(node) + '</>';
    const all = node => [...node.childNodes].map(text).join('');
    return all(document) + '\n' + document.body.innerText;
})())";

}  // namespace

bool WaitFor(const std::function<bool()>& condition) {
    const QDeadlineTimer deadline(60000);
    QTimer wake;
    wake.start(10);
    while (!condition() && !deadline.hasExpired()) {
        QCoreApplication::processEvents(QEventLoop::WaitForMoreEvents);
    }
    return condition();
}

QVariant ValueOf(QWebEnginePage& page, const QString& script, quint32 world) {
    QVariant value;
    bool is_there = false;
    page.runJavaScript(script, world, [&](const QVariant& result) {
        value = result;
        is_there = true;
    });
    if (!WaitFor([&] { return is_there; })) qFatal("the engine does not answer");
    return value;
}

EnginePage::EnginePage() : profile_(std::make_unique<QWebEngineProfile>()) {
    profile_->setUrlRequestInterceptor(new RequestFilter(profile_.get()));
    const auto document = [this](const QUrl& url) {
        const bool is_ours = url.query() == QString::number(load_);
        return is_ours ? std::optional<std::string>(text_) : std::nullopt;
    };
    auto* handler = new TopicSchemeHandler(
        files_, [] { return 1252; }, document, profile_.get());
    profile_->installUrlSchemeHandler(kTopicScheme, handler);
    page_ = std::make_unique<TopicPage>(profile_.get(), nullptr);
    QObject::connect(page_.get(), &QWebEnginePage::loadingChanged, page_.get(),
                     [this](const QWebEngineLoadingInfo& info) {
                         const bool is_ours = info.url().query() == QString::number(load_);
                         const bool is_end =
                             info.status() != QWebEngineLoadingInfo::LoadStartedStatus;
                         if (is_ours && is_end) is_loaded_ = true;
                     });
}

EnginePage::~EnginePage() = default;

bool EnginePage::Load(std::string_view text, const std::string& path) {
    text_ = text;
    is_loaded_ = false;
    page_->Show(UrlOfTopic(path, ++load_));
    return WaitFor([this] { return is_loaded_; });
}

std::string EnginePage::Serialised() {
    return Run(kSerialise).toString().toStdString();
}

std::string EnginePage::Contents() {
    return Run(kContents).toString().toStdString();
}

QVariant EnginePage::Run(const QString& script) {
    return ValueOf(*page_, script);
}

}  // namespace quorrel::test
