#include "project/keyword_cell.hpp"

#include <cstring>

#include "platform/text.hpp"
#include "project/project_state.hpp"

namespace quorrel {
namespace {
constexpr std::size_t kLongCell = 4096;
constexpr std::size_t kSlots = std::size_t{1} << 21;
}  // namespace

std::size_t KeywordCells::Windows::SlotOf(const char* window) {
    std::uint64_t word = 0;
    std::memcpy(&word, window, kSize);
    word ^= word >> 29;
    word *= 0xBF58476D1CE4E5B9ULL;
    word ^= word >> 32;
    return static_cast<std::size_t>(word) % kSlots;
}

void KeywordCells::Windows::Extend(std::string_view cell) {
    if (seen_.empty()) seen_.resize(kSlots);
    for (; taken_ + kSize <= cell.size(); ++taken_) seen_[SlotOf(cell.data() + taken_)] = true;
}

bool KeywordCells::Windows::MayContain(std::string_view key) const {
    for (std::size_t at = 0; at + kSize <= key.size(); ++at) {
        if (!seen_[SlotOf(key.data() + at)]) return false;
    }
    return true;
}

void KeywordCells::Append(ListRow& topic, std::string_view key) {
    const std::string_view cell = topic.SubItems(topic_cell::kKeywords);
    if (cell.size() < kLongCell) {
        if (Contains(cell, key)) return;
    } else {
        Windows& windows = long_cells_[&topic];
        windows.Extend(cell);
        if (windows.MayContain(key) && Contains(cell, key)) return;
    }
    topic.AppendToSubItem(topic_cell::kKeywords, std::string(key) + ";");
}

}  // namespace quorrel
