// A bound on the text that a reader makes of a file beyond what the file holds.
#pragma once

#include <cstddef>

#include "platform/failure.hpp"

namespace quorrel {

/// Some formats repeat text: a keyword stands again before each of its sub-keys, an indent grows
/// with the nesting. A file made for it could fill the memory in that way. What is beyond the
/// budget is logged as "Out of memory" and left out.
class TextBudget {
  public:
    explicit TextBudget(const Trap& trap) : trap_(trap) {}

    /// Takes `bytes` of the budget; false, and nothing taken, where they are not left.
    [[nodiscard]] bool Take(std::size_t bytes) {
        if (bytes > left_) {
            return trap_([] { throw RuntimeError(run_time_error::kOutOfMemory); });
        }
        left_ -= bytes;
        return true;
    }

  private:
    const Trap& trap_;
    std::size_t left_ = std::size_t{512} << 20;
};

}  // namespace quorrel
