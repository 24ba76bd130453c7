#include "project/keyword_cell.hpp"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "platform/text.hpp"
#include "project/project_state.hpp"

namespace quorrel {
namespace {

constexpr std::size_t kLongCell = 4096;
constexpr std::size_t kSlots = std::size_t{1} << 21;

std::size_t SlotOf(const char* stretch, std::size_t length) {
    std::uint64_t word = 0;
    std::memcpy(&word, stretch, length);
    word ^= word >> 29;
    word *= 0xBF58476D1CE4E5B9ULL;
    word ^= word >> 32;
    return static_cast<std::size_t>(word) % kSlots;
}

}  // namespace

void KeywordCells::Stretches::Extend(std::string_view cell, std::size_t length) {
    if (seen_.empty()) seen_.resize(kSlots);
    for (; taken_ + length <= cell.size(); ++taken_) {
        seen_[SlotOf(cell.data() + taken_, length)] = true;
    }
}

bool KeywordCells::Stretches::MayContain(std::string_view key, std::size_t length) const {
    for (std::size_t at = 0; at + length <= key.size(); ++at) {
        if (!seen_[SlotOf(key.data() + at, length)]) return false;
    }
    return true;
}

void KeywordCells::Append(ListRow& topic, std::string_view key) {
    const std::string_view cell = topic.SubItems(topic_cell::kKeywords);
    bool may_contain = !key.empty();
    if (cell.size() >= kLongCell && may_contain) {
        const std::size_t length = std::min(key.size(), kLongestStretch);
        Stretches& stretches = long_cells_[&topic][length];
        stretches.Extend(cell, length);
        may_contain = stretches.MayContain(key, length);
    }
    if (key.empty() || (may_contain && Contains(cell, key))) return;
    if (!budget_.Take(key.size())) return;
    topic.AppendToSubItem(topic_cell::kKeywords, std::string(key) + ";");
}

}  // namespace quorrel
