#include "editor/token_diff.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <vector>

namespace quorrel::test {
namespace {

using Keys = std::vector<std::uint64_t>;

/// Numbers from 0 to `bound` - 1 that look like chance.
class Numbers {
  public:
    std::uint64_t Below(std::uint64_t bound) {
        state_ = state_ * 6364136223846793005ULL + 1442695040888963407ULL;
        return (state_ >> 33) % bound;
    }

  private:
    std::uint64_t state_ = 1;
};

Keys Patched(const Keys& a, const Keys& b, const std::vector<DiffHunk>& hunks) {
    Keys result;
    std::size_t at = 0;
    const auto append = [&](const Keys& from, std::size_t begin, std::size_t end) {
        for (; begin < end; ++begin) result.push_back(from[begin]);
    };
    for (const DiffHunk& hunk : hunks) {
        append(a, at, hunk.a_begin);
        append(b, hunk.b_begin, hunk.b_end);
        at = hunk.a_end;
    }
    append(a, at, a.size());
    return result;
}

TEST(TokenDiff, HunksTurnTheOneIntoTheOther) {
    Numbers numbers;
    for (int round = 0; round < 300; ++round) {
        const std::uint64_t alphabet = 2 + numbers.Below(round % 3 == 0 ? 5000 : 20);
        Keys a(numbers.Below(1200));
        for (auto& key : a) key = numbers.Below(alphabet);
        Keys b;
        for (const auto key : a) {
            const std::uint64_t chance = numbers.Below(40);
            if (chance == 0) b.push_back(numbers.Below(alphabet));
            if (chance != 1) b.push_back(key);
        }
        ASSERT_EQ(Patched(a, b, DiffOf(a, b)), b) << round;
    }
}

TEST(TokenDiff, DifferencesAreAsSmallAsTheyAre) {
    const auto hunks = DiffOf(Keys{1, 2, 3, 4, 5, 6}, Keys{1, 3, 4, 9, 5, 6, 6});
    ASSERT_EQ(hunks.size(), 3U);
    EXPECT_EQ(hunks[0].a_end - hunks[0].a_begin, 1U);
    EXPECT_EQ(hunks[1].b_begin, 3U);
    EXPECT_EQ(hunks[2].b_end - hunks[2].b_begin, 1U);
    EXPECT_TRUE(DiffOf(Keys{1, 2}, Keys{1, 2}).empty());
}

TEST(TokenDiff, ALongestAscendingChainIsFound) {
    const std::vector<std::size_t> values = {5, 1, 2, 9, 3, 4, 0};
    EXPECT_EQ(LongestAscending(values), (std::vector<std::size_t>{1, 2, 4, 5}));
}

}  // namespace
}  // namespace quorrel::test
