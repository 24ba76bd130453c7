#include "editor/token_diff.hpp"

#include <gtest/gtest.h>

#include <cstdint>
#include <random>
#include <vector>

namespace quorrel::test {
namespace {

using Keys = std::vector<std::uint64_t>;
using Step = std::ptrdiff_t;

Keys Patched(const Keys& a, const Keys& b, const std::vector<DiffHunk>& hunks) {
    Keys result;
    std::size_t at = 0;
    for (const DiffHunk& hunk : hunks) {
        result.insert(result.end(), a.begin() + Step(at), a.begin() + Step(hunk.a_begin));
        result.insert(result.end(), b.begin() + Step(hunk.b_begin), b.begin() + Step(hunk.b_end));
        at = hunk.a_end;
    }
    result.insert(result.end(), a.begin() + Step(at), a.end());
    return result;
}

TEST(TokenDiff, HunksTurnTheOneIntoTheOther) {
    std::mt19937 random(1);
    for (int round = 0; round < 300; ++round) {
        const unsigned alphabet = 2 + random() % (round % 3 == 0 ? 5000 : 20);
        Keys a(random() % 1200);
        for (auto& key : a) key = random() % alphabet;
        Keys b;
        for (const auto key : a) {
            const auto chance = random() % 40;
            if (chance == 0) b.push_back(random() % alphabet);
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
