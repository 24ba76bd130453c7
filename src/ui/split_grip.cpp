#include "ui/split_grip.hpp"

#include <QMouseEvent>

namespace quorrel {

SplitGrip::SplitGrip(QWidget* parent) : QWidget(parent) {
    setObjectName("imgSplitter");
    setCursor(Qt::SplitHCursor);
    setToolTip("Drag to move the split");
}

void SplitGrip::mousePressEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) pressed();
}

void SplitGrip::mouseMoveEvent(QMouseEvent* event) {
    moved(qRound(event->position().x()));
}

void SplitGrip::mouseReleaseEvent(QMouseEvent* event) {
    if (event->button() == Qt::LeftButton) released();
}

}  // namespace quorrel
