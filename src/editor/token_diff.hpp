// The differences between two sequences.
#pragma once

#include <cstddef>
#include <cstdint>
#include <span>
#include <vector>

namespace quorrel {

/// [a_begin, a_end) of the one stands where [b_begin, b_end) of the other does; what lies
/// between two hunks is equal.
struct DiffHunk {
    std::size_t a_begin = 0;
    std::size_t a_end = 0;
    std::size_t b_begin = 0;
    std::size_t b_end = 0;
};

/// In ascending order. The hunks are small where that can be had in a time that grows with the
/// sequences; a stretch of too many differences becomes one hunk.
[[nodiscard]] std::vector<DiffHunk> DiffOf(std::span<const std::uint64_t> a,
                                           std::span<const std::uint64_t> b);

/// The indices of a longest chain of values that ascend.
[[nodiscard]] std::vector<std::size_t> LongestAscending(std::span<const std::size_t> values);

}  // namespace quorrel
