#include "ui/context_menu.hpp"

#include <QAbstractItemView>
#include <QContextMenuEvent>
#include <QMenu>

namespace quorrel {

ContextMenuOpener::ContextMenuOpener(QAbstractItemView* view, QMenu* menu)
    : QObject(view), view_(view), menu_(menu) {
    view_->installEventFilter(this);
    view_->viewport()->installEventFilter(this);
}

bool ContextMenuOpener::eventFilter(QObject* watched, QEvent* event) {
    if (event->type() != QEvent::ContextMenu) return QObject::eventFilter(watched, event);
    const auto* asked = static_cast<QContextMenuEvent*>(event);
    QPoint place = asked->globalPos();
    if (asked->reason() == QContextMenuEvent::Keyboard) {
        const QRect item = view_->visualRect(view_->currentIndex());
        const QRect shown = item & view_->viewport()->rect();
        place = view_->viewport()->mapToGlobal(shown.center());
    }
    menu_->popup(place);
    return true;
}

}  // namespace quorrel
