// Dragging with the mouse from one widget to another.
#pragma once

#include <gtest/gtest.h>

#include <QTest>
#include <QTimer>
#include <QWidget>

namespace quorrel::test {

/// Presses at one place, moves and releases at the other. The drag runs its own event loop, so
/// the steps behind the first ones come from a timer.
inline void Drag(QWidget* from, QPoint start, QWidget* to, QPoint end) {
    QTimer steps;
    int step = 0;
    QObject::connect(&steps, &QTimer::timeout, to, [&] {
        switch (step++) {
            case 0:
                return QTest::mouseMove(to, end - QPoint(0, 1));
            case 1:
                return QTest::mouseMove(to, end);
            default:
                steps.stop();
                QTest::mouseRelease(to, Qt::LeftButton, {}, end);
        }
    });
    QTest::mousePress(from, Qt::LeftButton, {}, start);
    steps.start(20);
    QTest::mouseMove(from, start + QPoint(0, 30));
    QTest::mouseMove(from, start + QPoint(0, 31));
    EXPECT_TRUE(QTest::qWaitFor([&] { return !steps.isActive(); }));
}

}  // namespace quorrel::test
