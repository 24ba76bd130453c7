#include "ui/surface_clipboard.hpp"

#include <QClipboard>
#include <QGuiApplication>
#include <QJsonArray>
#include <QMimeData>
#include <QUrl>
#include <algorithm>

namespace quorrel {
namespace {

bool HasFiles(const QMimeData& offered) {
    const QList<QUrl> urls = offered.urls();
    return std::any_of(urls.begin(), urls.end(), [](const QUrl& url) { return url.isLocalFile(); });
}

}  // namespace

QJsonObject PasteData(const QMimeData& offered) {
    QJsonObject data;
    if (offered.hasHtml()) data["html"] = offered.html();
    if (offered.hasText()) data["text"] = offered.text();
    QJsonArray files;
    for (const QUrl& url : offered.urls()) {
        if (url.isLocalFile()) files.append(url.toString(QUrl::FullyEncoded));
    }
    data["files"] = files;
    return data;
}

bool CanPaste(const QMimeData* offered) {
    if (offered == nullptr) return false;
    return offered->hasHtml() || offered->hasText() || HasFiles(*offered);
}

void SetClipboard(const QVariantMap& data) {
    auto* offered = new QMimeData;
    offered->setHtml(data.value("html").toString());
    const QString text = data.value("text").toString();
    if (!text.isEmpty()) offered->setText(text);
    QGuiApplication::clipboard()->setMimeData(offered);
}

}  // namespace quorrel
