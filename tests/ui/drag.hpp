// Dragging with the mouse from one widget to another.
#pragma once

#include <QDragEnterEvent>
#include <QMimeData>
#include <QTest>
#include <QWindow>

#include "ui/project_drag.hpp"

namespace quorrel::test {

/// The drag as the platform would run it: over the place and, if it is taken there, dropped.
inline DragRunner RunnerTo(QWidget* to, QPoint end) {
    return [to, end](QDrag& drag, Qt::DropActions actions) {
        constexpr auto kButton = Qt::LeftButton;
        QDragEnterEvent enter(end, actions, drag.mimeData(), kButton, {});
        QCoreApplication::sendEvent(to, &enter);
        QDragMoveEvent move(end, actions, drag.mimeData(), kButton, {});
        if (enter.isAccepted()) QCoreApplication::sendEvent(to, &move);
        if (enter.isAccepted() && move.isAccepted()) {
            QDropEvent drop(end, actions, drag.mimeData(), kButton, {});
            drop.setDropAction(move.dropAction());
            QCoreApplication::sendEvent(to, &drop);
        }
        drag.deleteLater();
    };
}

/// Presses on an item of `from`, moves and releases at the other place, both in one window.
template <typename View>
void Drag(View* from, const QModelIndex& item, QWidget* to, QPoint end) {
    QWindow* window = from->window()->windowHandle();
    const QPoint first = from->viewport()->mapTo(from->window(), from->visualRect(item).center());
    from->run_drag = RunnerTo(to, end);
    QTest::mousePress(window, Qt::LeftButton, {}, first);
    // The first move says that it is a drag, the second begins it.
    QTest::mouseMove(window, first + QPoint(0, 20));
    QTest::mouseMove(window, first + QPoint(0, 30));
    QTest::mouseRelease(window, Qt::LeftButton, {}, first + QPoint(0, 30));
}

}  // namespace quorrel::test
