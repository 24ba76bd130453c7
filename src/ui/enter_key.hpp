// The Enter key in a list.
#pragma once

#include <QKeyEvent>
#include <QObject>

#include <functional>
#include <utility>

namespace quorrel {

/// Runs `work` on Enter in `view`. The views' own signal for it comes with a double click too.
class EnterKey : public QObject {
  public:
    EnterKey(QObject* view, std::function<void()> work) : QObject(view), work_(std::move(work)) {
        view->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::KeyPress) return QObject::eventFilter(watched, event);
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (key != Qt::Key_Return && key != Qt::Key_Enter) return false;
        work_();
        return true;
    }

  private:
    std::function<void()> work_;
};

}  // namespace quorrel
