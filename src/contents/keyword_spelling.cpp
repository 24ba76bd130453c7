#include "contents/keyword_spelling.hpp"

#include <utility>
#include <vector>

#include "platform/text.hpp"
#include "project/project_state.hpp"

namespace quorrel {
namespace {

using namespace keyword_cell;

constexpr std::string_view kMark = kSubKeyMark;

/// The sub-key, or a key without one itself.
std::string_view LastPart(std::string_view full_key) {
    const std::size_t mark = full_key.find(kMark);
    return mark == npos ? full_key : TrimLeft(full_key.substr(mark + kMark.size()));
}

/// `key`, respelled where it is `from`, a sub-key of it or a bookmark under it.
std::string Respelled(std::string_view key, std::string_view from, std::string_view to) {
    if (!key.starts_with(from)) return std::string(key);
    const std::string_view rest = key.substr(from.size());
    const bool is_meant = rest.empty() || rest.starts_with(kMark) || rest.starts_with("##");
    return is_meant ? std::string(to).append(rest) : std::string(key);
}

void RespellRow(ListView& table, ListRow& row, std::string_view from, std::string_view to) {
    const std::string old_key = row.SubItems(IDX_FULLKEY);
    const std::string key = Respelled(old_key, from, to);
    if (ListRow* twin = table.FirstWithExactly(IDX_FULLKEY, key)) {
        twin->AppendToSubItem(IDX_TITLEPATH, row.SubItems(IDX_TITLEPATH));
        table.Remove(table.PositionOf(row));
        return;
    }
    row.SetSubItem(IDX_FULLKEY, key);
    if (old_key == from) row.SetText(ReplaceAll(row.Text(), LastPart(from), LastPart(to)));
}

void RespellRows(ListView& table, std::string_view from, std::string_view to) {
    std::vector<ListRow*> rows;
    for (int i = 1; i <= table.Count(); ++i) {
        ListRow& row = table.At(i);
        const std::string& key = row.SubItems(IDX_FULLKEY);
        if (Respelled(key, from, to) != key) rows.push_back(&row);
    }
    for (ListRow* row : rows) RespellRow(table, *row, from, to);
}

void RespellCells(ListView& ListTopics, std::string_view from, std::string_view to) {
    for (int i = 1; i <= ListTopics.Count(); ++i) {
        ListRow& topic = ListTopics.At(i);
        std::string_view rest = topic.SubItems(topic_cell::kKeywords);
        if (!Contains(rest, from)) continue;
        std::string cell;
        for (std::size_t end = rest.find(';'); end != npos; end = rest.find(';')) {
            cell.append(Respelled(rest.substr(0, end), from, to)).append(";");
            rest.remove_prefix(end + 1);
        }
        topic.SetSubItem(topic_cell::kKeywords, cell.append(rest));
    }
}

}  // namespace

std::string ShownKey(std::string_view full_key) {
    return ReplaceAll(full_key, kMark, ":");
}

std::string FullKeyOf(std::string_view shown) {
    const std::size_t colon = shown.find(':');
    if (colon == npos) return std::string(shown);
    return std::string(shown.substr(0, colon)).append(kMark).append(shown.substr(colon + 1));
}

ListRow* KeywordShownAs(const ListView& ListKeywords, std::string_view shown) {
    ListRow* row = ListKeywords.FirstWithExactly(IDX_FULLKEY, FullKeyOf(shown));
    if (row != nullptr || !Contains(shown, ":")) return row;
    for (int i = 1; i <= ListKeywords.Count(); ++i) {
        const std::string& key = ListKeywords.At(i).SubItems(IDX_FULLKEY);
        if (ShownKey(key) == shown) return ListKeywords.FirstWithExactly(IDX_FULLKEY, key);
    }
    return nullptr;
}

std::string InLettersOf(std::string_view full_key, std::string_view shown) {
    std::string key;
    for (;;) {
        const std::size_t colon = shown.find(':');
        key += shown.substr(0, colon);
        if (colon == npos) return key;
        shown.remove_prefix(colon + 1);
        const std::size_t old_colon = full_key.find(':');
        const bool is_mark = full_key.substr(0, old_colon + 1).ends_with(kMark);
        key += is_mark ? kMark : ":";
        full_key.remove_prefix(old_colon + 1);
    }
}

void RespellKeyword(KeywordState& keywords, ListView& ListTopics, std::string_view old_key,
                    std::string_view new_key) {
    keywords.index_dirty = true;
    ListView& table = keywords.ListKeywords;
    // Also where it is only a part of another key.
    const std::string old_shown = ShownKey(old_key);
    const std::string new_shown = ShownKey(new_key);
    for (int i = 1; i <= table.Count(); ++i) {
        ListRow& row = table.At(i);
        if (!Contains(row.SubItems(IDX_FULLKEY), old_key)) continue;
        row.SetText(ReplaceAll(row.Text(), old_shown, new_shown));
    }
    const auto respell = [&](std::string_view from, std::string_view to) {
        if (from == to) return;
        RespellRows(table, from, to);
        RespellCells(ListTopics, from, to);
    };
    // First the main key, which the rows of other sub-keys have as well.
    const std::size_t mark = old_key.find(kMark);
    if (mark == npos) return respell(old_key, new_key);
    const std::string_view new_main = new_key.substr(0, new_key.find(kMark));
    respell(old_key.substr(0, mark), new_main);
    respell(std::string(new_main).append(old_key.substr(mark)), new_key);
}

}  // namespace quorrel
