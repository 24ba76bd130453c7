// A list of listeners.
#pragma once

#include <deque>
#include <functional>
#include <utility>

namespace quorrel {

template <typename... Arguments>
class Signal {
  public:
    Signal() = default;
    Signal(const Signal&) = delete;
    Signal& operator=(const Signal&) = delete;

    /// Listeners are called in the order of their connection, for as long as the signal lives.
    void Connect(std::function<void(Arguments...)> listener) {
        listeners_.push_back(std::move(listener));
    }

    void Emit(Arguments... arguments) const {
        // By index: a listener may connect another one, which is called from the next time on.
        const std::size_t count = listeners_.size();
        for (std::size_t i = 0; i < count; ++i) {
            listeners_[i](arguments...);
        }
    }

  private:
    // A deque: its elements stay in place when one is added meanwhile.
    std::deque<std::function<void(Arguments...)>> listeners_;
};

}  // namespace quorrel
