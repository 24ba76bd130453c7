#include "ui/preview_view.hpp"

#include <QChildEvent>
#include <QContextMenuEvent>
#include <QMenu>

#include "ui/preview_page.hpp"
#include "ui/print_view.hpp"
#include "ui/theme_icon.hpp"

namespace quorrel {

PreviewView::PreviewView(QWidget* parent) : QWebEngineView(parent) {
    setAcceptDrops(false);
}

void PreviewView::childEvent(QChildEvent* event) {
    // The engine puts a widget of its own inside, and sometimes another one.
    if (event->added()) event->child()->installEventFilter(this);
    QWebEngineView::childEvent(event);
}

bool PreviewView::eventFilter(QObject* watched, QEvent* event) {
    const auto type = event->type();
    const bool is_input = type == QEvent::MouseButtonPress || type == QEvent::MouseButtonRelease ||
                          type == QEvent::KeyPress;
    // The page's own dialogs are children too.
    const auto* widget = qobject_cast<QWidget*>(watched);
    const bool is_inside = widget != nullptr && !widget->isWindow();
    auto* shown = is_input && is_inside ? qobject_cast<PreviewPage*>(page()) : nullptr;
    if (shown != nullptr) shown->NoteInput();
    return QWebEngineView::eventFilter(watched, event);
}

void PreviewView::contextMenuEvent(QContextMenuEvent* event) {
    auto* menu = new QMenu(this);
    menu->setObjectName("PreviewMenu");
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const auto action : {QWebEnginePage::Back, QWebEnginePage::Reload, QWebEnginePage::Copy,
                              QWebEnginePage::SelectAll}) {
        menu->addAction(pageAction(action));
    }
    menu->addSeparator();
    menu->addAction(ThemeIcon("document-print"), "&Print...", this, [this] { PrintView(*this); });
    menu->popup(event->globalPos());
}

}  // namespace quorrel
