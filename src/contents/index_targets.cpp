#include "contents/index_targets.hpp"

#include "contents/contents_state.hpp"
#include "contents/keyword_spelling.hpp"
#include "platform/text.hpp"

namespace quorrel {
namespace {
constexpr std::string_view kSeeAlso = "SEE ALSO:";
constexpr std::string_view kGroupEnd = ";:";
}  // namespace

std::vector<IndexTarget> IndexTargets(std::string_view title_path) {
    std::vector<IndexTarget> targets;
    while (!title_path.empty()) {
        const std::size_t end = title_path.find(kGroupEnd);
        const std::string_view group = title_path.substr(0, end);
        title_path.remove_prefix(end == npos ? title_path.size() : end + kGroupEnd.size());
        const std::size_t mark = group.find('>');
        if (mark == npos) continue;
        targets.push_back(
            {std::string(group.substr(0, mark)), std::string(group.substr(mark + 1))});
    }
    return targets;
}

bool IsSeeAlso(const ListRow& row) {
    return Contains(row.SubItems(keyword_cell::IDX_TITLEPATH), kSeeAlso);
}

ListRow* SeeAlsoRow(const ListView& ListKeywords, const ListRow& row) {
    std::string_view key = row.SubItems(keyword_cell::IDX_TITLEPATH);
    const std::size_t at = key.find(kSeeAlso);
    if (at == npos) return nullptr;
    key.remove_prefix(at + kSeeAlso.size());
    key = TrimLeft(key.substr(0, key.find('>')));
    if (key.empty()) return nullptr;
    return KeywordShownAs(ListKeywords, key);
}

}  // namespace quorrel
