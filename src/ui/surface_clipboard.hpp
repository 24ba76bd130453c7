// What goes between the clipboard and a page.
#pragma once

#include <QJsonObject>
#include <QVariant>

class QMimeData;

namespace quorrel {

/// {html, text, files} of what is offered, as the script in the page takes it.
[[nodiscard]] QJsonObject PasteData(const QMimeData& offered);
/// Whether there is something of that kind.
[[nodiscard]] bool CanPaste(const QMimeData* offered);
/// Puts {html, text} on the clipboard.
void SetClipboard(const QVariantMap& data);

}  // namespace quorrel
