#include "editor/token_diff.hpp"

#include <algorithm>
#include <unordered_map>

namespace quorrel {
namespace {

using Keys = std::span<const std::uint64_t>;

/// Myers: the most differences that one stretch is searched for, and the steps for all of them.
constexpr std::ptrdiff_t kMostDifferences = 1000;
constexpr std::size_t kWork = 8'000'000;
/// Longer stretches are cut at keys that are unique in both first.
constexpr std::size_t kShort = 400;

class Differ {
  public:
    Differ(Keys a, Keys b) : a_(a), b_(b) {}

    std::vector<DiffHunk> Run() {
        pending_.push_back({0, a_.size(), 0, b_.size()});
        while (!pending_.empty()) {
            const DiffHunk stretch = pending_.back();
            pending_.pop_back();
            Compare(Trimmed(stretch));
        }
        return std::move(hunks_);
    }

  private:
    DiffHunk Trimmed(DiffHunk it) const {
        while (it.a_begin < it.a_end && it.b_begin < it.b_end && a_[it.a_begin] == b_[it.b_begin]) {
            ++it.a_begin;
            ++it.b_begin;
        }
        while (it.a_begin < it.a_end && it.b_begin < it.b_end &&
               a_[it.a_end - 1] == b_[it.b_end - 1]) {
            --it.a_end;
            --it.b_end;
        }
        return it;
    }

    void Compare(const DiffHunk& it) {
        const std::size_t a_size = it.a_end - it.a_begin;
        const std::size_t b_size = it.b_end - it.b_begin;
        if (a_size == 0 && b_size == 0) return;
        if (a_size == 0 || b_size == 0) return hunks_.push_back(it);
        if (a_size + b_size > kShort && CutAtAnchors(it)) return;
        if (!Myers(it)) hunks_.push_back(it);
    }

    struct Anchor {
        std::size_t a = 0;
        std::size_t b = 0;
    };

    /// Keys that stand once in each of the two.
    std::vector<Anchor> UniqueKeys(const DiffHunk& it) const {
        struct Count {
            std::uint32_t in_a = 0;
            std::uint32_t in_b = 0;
            std::size_t place = 0;
        };
        std::unordered_map<std::uint64_t, Count> counts;
        counts.reserve(it.a_end - it.a_begin);
        for (std::size_t at = it.a_begin; at < it.a_end; ++at) {
            Count& count = counts[a_[at]];
            ++count.in_a;
            count.place = at;
        }
        for (std::size_t at = it.b_begin; at < it.b_end; ++at) {
            const auto found = counts.find(b_[at]);
            if (found != counts.end()) ++found->second.in_b;
        }
        std::vector<Anchor> anchors;
        for (std::size_t at = it.b_begin; at < it.b_end; ++at) {
            const auto found = counts.find(b_[at]);
            if (found == counts.end()) continue;
            const Count& count = found->second;
            if (count.in_a == 1 && count.in_b == 1) anchors.push_back({count.place, at});
        }
        return anchors;
    }

    bool CutAtAnchors(const DiffHunk& it) {
        std::vector<Anchor> anchors = UniqueKeys(it);
        std::vector<std::size_t> places(anchors.size());
        std::transform(anchors.begin(), anchors.end(), places.begin(),
                       [](const Anchor& anchor) { return anchor.a; });
        const std::vector<std::size_t> chain = LongestAscending(places);
        if (chain.empty()) return false;
        // The last stretch is pushed first, so that the hunks come in order.
        DiffHunk rest = it;
        for (std::size_t at = chain.size(); at-- > 0;) {
            const Anchor& anchor = anchors[chain[at]];
            pending_.push_back({anchor.a + 1, rest.a_end, anchor.b + 1, rest.b_end});
            rest.a_end = anchor.a;
            rest.b_end = anchor.b;
        }
        pending_.push_back(rest);
        return true;
    }

    /// The greedy algorithm of Myers with its whole trace. False if it takes too long.
    bool Myers(const DiffHunk& it) {
        const auto a_size = static_cast<std::ptrdiff_t>(it.a_end - it.a_begin);
        const auto b_size = static_cast<std::ptrdiff_t>(it.b_end - it.b_begin);
        const std::ptrdiff_t most = std::min(a_size + b_size, kMostDifferences);
        trace_.clear();
        std::vector<std::ptrdiff_t> reach(static_cast<std::size_t>(2 * most + 3), 0);
        const auto at = [&](std::ptrdiff_t k) -> std::ptrdiff_t& {
            return reach[static_cast<std::size_t>(k + most + 1)];
        };
        for (std::ptrdiff_t d = 0; d <= most; ++d) {
            trace_.emplace_back(reach.begin() + (most + 1 - d - 1),
                                reach.begin() + (most + 1 + d + 2));
            for (std::ptrdiff_t k = -d; k <= d; k += 2) {
                const bool down = k == -d || (k != d && at(k - 1) < at(k + 1));
                std::ptrdiff_t x = down ? at(k + 1) : at(k - 1) + 1;
                const std::ptrdiff_t begin = x;
                while (x < a_size && x - k >= 0 && x - k < b_size &&
                       a_[it.a_begin + static_cast<std::size_t>(x)] ==
                           b_[it.b_begin + static_cast<std::size_t>(x - k)]) {
                    ++x;
                }
                work_ += static_cast<std::size_t>(x - begin) + 1;
                at(k) = x;
                if (x >= a_size && x - k >= b_size) {
                    Backtrack(it, d, a_size, b_size);
                    return true;
                }
            }
            if (work_ > kWork) return false;
        }
        return false;
    }

    void Backtrack(const DiffHunk& it, std::ptrdiff_t d, std::ptrdiff_t x, std::ptrdiff_t y) {
        std::vector<DiffHunk> found;  // from the end
        for (; d > 0; --d) {
            const std::vector<std::ptrdiff_t>& reach = trace_[static_cast<std::size_t>(d)];
            const auto at = [&](std::ptrdiff_t k) {
                return reach[static_cast<std::size_t>(k + d + 1)];
            };
            const std::ptrdiff_t k = x - y;
            const bool down = k == -d || (k != d && at(k - 1) < at(k + 1));
            const std::ptrdiff_t from = down ? k + 1 : k - 1;
            const std::ptrdiff_t from_x = at(from);
            const std::ptrdiff_t from_y = from_x - from;
            const std::ptrdiff_t to_x = down ? from_x : from_x + 1;
            const std::ptrdiff_t to_y = down ? from_y + 1 : from_y;
            const DiffHunk step{it.a_begin + static_cast<std::size_t>(from_x),
                                it.a_begin + static_cast<std::size_t>(to_x),
                                it.b_begin + static_cast<std::size_t>(from_y),
                                it.b_begin + static_cast<std::size_t>(to_y)};
            const bool joins = !found.empty() && found.back().a_begin == step.a_end &&
                               found.back().b_begin == step.b_end;
            if (joins) {
                found.back().a_begin = step.a_begin;
                found.back().b_begin = step.b_begin;
            } else {
                found.push_back(step);
            }
            x = from_x;
            y = from_y;
        }
        hunks_.insert(hunks_.end(), found.rbegin(), found.rend());
    }

    Keys a_;
    Keys b_;
    std::vector<DiffHunk> pending_;  // the next one last
    std::vector<DiffHunk> hunks_;
    std::vector<std::vector<std::ptrdiff_t>> trace_;
    std::size_t work_ = 0;
};

}  // namespace

std::vector<std::size_t> LongestAscending(std::span<const std::size_t> values) {
    std::vector<std::size_t> tails;  // of the chain of each length, the smallest end
    std::vector<std::size_t> before(values.size());
    constexpr std::size_t kStart = static_cast<std::size_t>(-1);
    for (std::size_t at = 0; at < values.size(); ++at) {
        const auto place = std::lower_bound(
            tails.begin(), tails.end(), values[at],
            [&](std::size_t tail, std::size_t value) { return values[tail] < value; });
        before[at] = place == tails.begin() ? kStart : *(place - 1);
        if (place == tails.end())
            tails.push_back(at);
        else
            *place = at;
    }
    std::vector<std::size_t> chain;
    for (std::size_t at = tails.empty() ? kStart : tails.back(); at != kStart; at = before[at]) {
        chain.push_back(at);
    }
    std::reverse(chain.begin(), chain.end());
    return chain;
}

std::vector<DiffHunk> DiffOf(std::span<const std::uint64_t> a, std::span<const std::uint64_t> b) {
    return Differ(a, b).Run();
}

}  // namespace quorrel
