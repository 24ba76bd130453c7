// The number of the error that a call raises.
#pragma once

#include <functional>

#include "platform/failure.hpp"

namespace quorrel::test {

/// The number that `work` raises, or 0.
inline int NumberOf(const std::function<void()>& work) {
    try {
        work();
        return 0;
    } catch (const RuntimeError& error) {
        return error.Number();
    }
}

}  // namespace quorrel::test
