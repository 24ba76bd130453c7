// The display indent of sub-keywords, while an index file is read.
#pragma once

#include <cstddef>
#include <string>

#include "platform/failure.hpp"

namespace quorrel {

/// Three blanks a level. All indents of one file share a budget, since a file that nests without
/// end would fill the memory; once it is used up, an indent is that of level two and the failure
/// is logged.
class KeywordIndent {
  public:
    explicit KeywordIndent(const Trap& trap) : trap_(trap) {}

    [[nodiscard]] std::string OfLevel(int level) {
        const std::size_t size = static_cast<std::size_t>(level) * 3;
        const bool affordable = trap_([&] {
            if (size > kBudget - used_) throw RuntimeError(run_time_error::kOutOfMemory);
        });
        if (!affordable) return std::string(6, ' ');
        used_ += size;
        return std::string(size, ' ');
    }

  private:
    static constexpr std::size_t kBudget = std::size_t{256} << 20;
    const Trap& trap_;
    std::size_t used_ = 0;
};

}  // namespace quorrel
