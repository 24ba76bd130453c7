#include "project/keyword_cell.hpp"

#include "platform/text.hpp"
#include "project/project_state.hpp"

namespace quorrel {

/// A short cell is looked through as quickly.
static constexpr std::size_t kLongCell = 4096;

bool KeywordCells::Stands(const ListRow& topic, std::string_view cell, std::string_view key) {
    if (cell.size() < kLongCell) return Contains(cell, key);
    return long_cells_[&topic].Contains(cell, key);
}

std::vector<std::string> KeysOfCell(std::string_view cell) {
    std::vector<std::string> keys;
    for (std::size_t end = cell.find(';'); end != npos; end = cell.find(';')) {
        keys.emplace_back(cell.substr(0, end));
        cell.remove_prefix(end + 1);
    }
    return keys;
}

void KeywordCells::Append(ListRow& topic, std::string_view key) {
    if (key.empty() || Stands(topic, topic.SubItems(topic_cell::kKeywords), key)) return;
    if (!budget_.Take(key.size())) return;
    topic.AppendToSubItem(topic_cell::kKeywords, std::string(key) + ";");
}

}  // namespace quorrel
