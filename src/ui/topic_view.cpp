#include "ui/topic_view.hpp"

#include <QContextMenuEvent>
#include <QMenu>

namespace quorrel {

TopicView::TopicView(QWidget* parent) : QWebEngineView(parent) {
    setObjectName("DHTMLEdit1");
    setAccessibleName("Topic");
    setAcceptDrops(false);
}

void TopicView::contextMenuEvent(QContextMenuEvent* event) {
    auto* menu = new QMenu(this);
    menu->setAttribute(Qt::WA_DeleteOnClose);
    QAction* copy =
        menu->addAction("&Copy", this, [this] { triggerPageAction(QWebEnginePage::Copy); });
    copy->setEnabled(hasSelection());
    menu->addAction("Select &All", this, [this] { triggerPageAction(QWebEnginePage::SelectAll); });
    menu->popup(event->globalPos());
}

}  // namespace quorrel
