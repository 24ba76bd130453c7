// The grip between the sides of the window, by which the user moves the split.
#pragma once

#include <QWidget>

#include <functional>

namespace quorrel {

/// It tells what the mouse does; who owns it moves the bar and, in the end, the panes.
class SplitGrip : public QWidget {
    Q_OBJECT
  public:
    explicit SplitGrip(QWidget* parent);

    std::function<void()> pressed;
    std::function<void(int x)> moved;  // pixels from the left of the grip
    std::function<void()> released;

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;
    void mouseReleaseEvent(QMouseEvent* event) override;
};

}  // namespace quorrel
