#include "ui/topic_view.hpp"

#include <QChildEvent>
#include <QContextMenuEvent>
#include <QDragEnterEvent>
#include <QDropEvent>

namespace quorrel {

TopicView::TopicView(QWidget* parent) : QWebEngineView(parent) {
    setObjectName("DHTMLEdit1");
    setAccessibleName("Topic");
    setAcceptDrops(true);
}

void TopicView::contextMenuEvent(QContextMenuEvent* event) {
    if (menu_wanted) menu_wanted(event->pos());
}

void TopicView::dragEnterEvent(QDragEnterEvent* event) {
    event->setAccepted(may_drop && may_drop(*event));
}

void TopicView::dragMoveEvent(QDragMoveEvent* event) {
    event->setAccepted(may_drop && may_drop(*event));
}

void TopicView::dragLeaveEvent(QDragLeaveEvent*) {}

void TopicView::dropEvent(QDropEvent* event) {
    event->acceptProposedAction();
    if (dropped) dropped(*event);
}

void TopicView::childEvent(QChildEvent* event) {
    QWebEngineView::childEvent(event);
    // The widget that gets the input comes with the page, and anew after a crash.
    if (event->added() && event->child()->isWidgetType()) event->child()->installEventFilter(this);
}

bool TopicView::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::KeyPress:
        case QEvent::InputMethod:
        case QEvent::MouseButtonPress:
        case QEvent::MouseButtonRelease:
            if (input_seen) input_seen();
            break;
        default:
            break;
    }
    return QWebEngineView::eventFilter(watched, event);
}

}  // namespace quorrel
