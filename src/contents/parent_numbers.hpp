// The numbers of the last nodes by level, while a contents file is read.
#pragma once

#include <array>

#include "platform/failure.hpp"

namespace quorrel {

/// Levels 0 to 30; another one raises 9, which leaves an entry nested deeper unplaced.
class ParentNumbers {
  public:
    int& At(int level) {
        if (level < 0 || level >= static_cast<int>(numbers_.size())) {
            throw RuntimeError(run_time_error::kSubscriptOutOfRange);
        }
        return numbers_[static_cast<std::size_t>(level)];
    }

  private:
    std::array<int, 31> numbers_{};
};

}  // namespace quorrel
