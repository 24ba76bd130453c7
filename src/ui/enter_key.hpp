// Keys that do something of their own in a view.
#pragma once

#include <QKeyEvent>
#include <QObject>

#include <algorithm>
#include <functional>
#include <initializer_list>
#include <utility>
#include <vector>

namespace quorrel {

/// Runs `work` on one of some keys in `view`, which does not see them.
class KeyFilter : public QObject {
  public:
    KeyFilter(QObject* view, std::initializer_list<int> keys, std::function<void()> work)
        : QObject(view), keys_(keys), work_(std::move(work)) {
        view->installEventFilter(this);
    }

    bool eventFilter(QObject* watched, QEvent* event) override {
        if (event->type() != QEvent::KeyPress) return QObject::eventFilter(watched, event);
        const int key = static_cast<QKeyEvent*>(event)->key();
        if (std::find(keys_.begin(), keys_.end(), key) == keys_.end()) return false;
        work_();
        return true;
    }

  private:
    std::vector<int> keys_;
    std::function<void()> work_;
};

/// Runs `work` on Enter in `view`. The views' own signal for it comes with a double click too.
class EnterKey : public KeyFilter {
  public:
    EnterKey(QObject* view, std::function<void()> work)
        : KeyFilter(view, {Qt::Key_Return, Qt::Key_Enter}, std::move(work)) {}
};

}  // namespace quorrel
