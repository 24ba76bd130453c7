// Files and drops on their way into a topic.
#include <QClipboard>
#include <QDropEvent>
#include <QGuiApplication>
#include <QMimeData>
#include <QTimer>

#include "platform/failure.hpp"
#include "ui/project_drag.hpp"
#include "ui/surface_clipboard.hpp"
#include "ui/topic_view.hpp"
#include "ui/web_surface.hpp"

namespace quorrel {
namespace {

/// Whether the drag began in the page itself.
bool IsFrom(const QWidget* view, const QDropEvent& event) {
    const auto* source = qobject_cast<const QWidget*>(event.source());
    return source != nullptr && (source == view || view->isAncestorOf(source));
}

}  // namespace

void WebSurface::PasteFiles() {
    if (!IsReady() || look_.browse) return;
    try {
        calls_->Call("paste", {PasteData(*QGuiApplication::clipboard()->mimeData())});
    } catch (const RuntimeError&) {
        // A page that does not answer takes nothing; nobody above could do anything about it.
    }
}

bool WebSurface::MayDrop(const QDropEvent& event) const {
    if (!IsReady() || look_.browse) return false;
    return CanPaste(event.mimeData()) || event.mimeData()->hasFormat(kProjectItemMime);
}

void WebSurface::Drop(const QDropEvent& event) {
    if (!MayDrop(event)) return;
    const QPoint place = event.position().toPoint();
    try {
        if (IsFrom(view_, event)) {
            const bool is_copy = event.dropAction() == Qt::CopyAction &&
                                 event.modifiers().testFlag(Qt::ControlModifier);
            calls_->Call("drop", {place.x(), place.y(), QJsonObject(), is_copy ? "copy" : "move"});
        } else if (drop_taken && drop_taken(*event.mimeData())) {
            calls_->Call("caretTo", {place.x(), place.y()});
            // A caret that was there already tells nothing.
            QTimer::singleShot(0, this, [this] {
                if (DisplayChanged) DisplayChanged();
            });
        } else {
            calls_->Call("drop", {place.x(), place.y(), PasteData(*event.mimeData()), ""});
        }
    } catch (const RuntimeError&) {
        // As above.
    }
}

}  // namespace quorrel
