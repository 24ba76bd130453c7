#include "ui/topic_view.hpp"

#include <QChildEvent>
#include <QContextMenuEvent>
#include <QKeyEvent>

namespace quorrel {

TopicView::TopicView(QWidget* parent) : QWebEngineView(parent) {
    setObjectName("DHTMLEdit1");
    setAccessibleName("Topic");
    setAcceptDrops(false);
}

void TopicView::contextMenuEvent(QContextMenuEvent* event) {
    if (menu_wanted) menu_wanted(event->pos());
}

void TopicView::childEvent(QChildEvent* event) {
    QWebEngineView::childEvent(event);
    // The widget that gets the input comes with the page, and anew after a crash.
    if (event->added() && event->child()->isWidgetType()) event->child()->installEventFilter(this);
}

bool TopicView::eventFilter(QObject* watched, QEvent* event) {
    switch (event->type()) {
        case QEvent::KeyPress:
            if (input_seen) input_seen();
            if (key_pressed && key_pressed(*static_cast<QKeyEvent*>(event))) return true;
            break;
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
