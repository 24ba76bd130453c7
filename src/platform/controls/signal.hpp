// A list of listeners.
#pragma once

#include <functional>
#include <utility>
#include <vector>

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
            const auto listener = listeners_[i];
            listener(arguments...);
        }
    }

  private:
    std::vector<std::function<void(Arguments...)>> listeners_;
};

}  // namespace quorrel
