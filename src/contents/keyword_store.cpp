#include "contents/keyword_store.hpp"

#include <algorithm>

#include "app/main_form.hpp"
#include "platform/text.hpp"
#include "platform/unicode.hpp"

namespace quorrel {
namespace {

using namespace keyword_cell;

constexpr std::string_view kBookmarkMark = "##";
constexpr std::string_view kTargetEnd = ";:";
constexpr std::string_view kSubKeyIndent = "      ";

struct KeyParts {
    std::string_view key;
    std::string_view bookmark;  // begins with "#", or empty
};

KeyParts SplitBookmark(std::string_view key) {
    const std::size_t mark = key.find(kBookmarkMark);
    if (mark == npos) return {key, {}};
    return {key.substr(0, mark), key.substr(mark + 1)};
}

/// Gives a new sub-key a row of its main key before it, unless one is found there.
void AddHeadRow(ListView& table, const ListRow& sub_key_row, const std::string& main_key) {
    int position = table.PositionOf(sub_key_row);
    const std::string* nearest = &sub_key_row.Text();
    // A row that merely contains the main key's text ends the search, and then a head row is
    // added even where one lies further up.
    for (; position >= 1; --position) {
        const std::string& text = table.At(position).Text();
        if (!FindIgnoringCase(text, main_key)) continue;
        nearest = &text;
        break;
    }
    if (EqualsIgnoringCase(*nearest, main_key)) return;
    table.Add(main_key).SetSubItem(IDX_FULLKEY, main_key);
}

void AddKey(ListView& table, std::string_view full_key, const std::string& entry) {
    const std::size_t colon = full_key.find(':');
    std::string display(colon == npos ? full_key : TrimLeft(full_key.substr(colon + 1)));
    const std::string key = StripKeyNote(full_key);
    if (ListRow* row = KeywordRow(table, full_key)) {
        if (!Contains(row->SubItems(IDX_TITLEPATH), entry))
            row->AppendToSubItem(IDX_TITLEPATH, entry);
        return;
    }
    const std::size_t mark = key.find(kSubKeyMark);
    const bool is_sub_key = mark != npos;
    if (is_sub_key) display.insert(0, kSubKeyIndent);
    ListRow& row = table.Add(std::move(display));
    row.SetSubItem(IDX_TITLEPATH, entry);
    row.SetSubItem(IDX_FULLKEY, key);
    if (is_sub_key) AddHeadRow(table, row, key.substr(0, mark));
}

/// The length of the first target of a list. A title may hold the mark of its end, and a path
/// follows it then.
std::size_t FirstTarget(std::string_view targets) {
    const std::size_t path = std::min(targets.find('>'), targets.size());
    const std::size_t end = targets.find(kTargetEnd, path);
    return end == npos ? targets.size() : end + kTargetEnd.size();
}

/// The target list with its titles changed. A path may well hold a title, and stays.
std::string WithTitle(std::string_view targets, std::string_view old_title,
                      std::string_view new_title) {
    std::string changed;
    while (!targets.empty()) {
        const std::string_view target = targets.substr(0, FirstTarget(targets));
        const std::size_t path = std::min(target.rfind('>'), target.size());
        changed += ReplaceAll(target.substr(0, path), old_title, new_title);
        changed += target.substr(path);
        targets.remove_prefix(target.size());
    }
    return changed;
}

}  // namespace

std::string StripKeyNote(std::string_view key) {
    const std::size_t close = key.rfind(')');
    const std::size_t open = key.rfind('(');
    if (close == npos || open == npos || open > close) return std::string(key);
    const std::string_view note = key.substr(open, close - open + 1);
    return std::string(Trim(ReplaceAll(key, note, "")));
}

ListRow* KeywordRow(const ListView& ListKeywords, std::string_view key) {
    ListRow* row = ListKeywords.LastWithExactly(IDX_FULLKEY, key);
    return row != nullptr ? row : ListKeywords.LastWithExactly(IDX_FULLKEY, StripKeyNote(key));
}

void AddToIndex(MainForm& main, std::string_view title, std::string_view path,
                std::string_view keys) {
    main.keywords.index_dirty = true;
    bool alias_known = false;  // stays set for the later keys of the call
    for (std::size_t end = keys.find(';'); end != npos; end = keys.find(';')) {
        const KeyParts parts = SplitBookmark(keys.substr(0, end));
        keys.remove_prefix(end + 1);
        const std::string target = std::string(path).append(parts.bookmark);
        AddKey(main.keywords.ListKeywords, parts.key,
               std::string(title).append(">").append(target).append(kTargetEnd));
        if (main.project.help_mode != 1 || parts.bookmark.empty()) continue;
        TopicTables& topics = main.topics;
        if (topics.ListAliases.FirstWith(alias_cell::kPath, target) != nullptr) alias_known = true;
        if (alias_known || topics.current_topic_index < 1) continue;
        const ListRow& topic = topics.ListTopics.At(topics.current_topic_index);
        std::string name = topic.SubItems(topic_cell::kMapId);
        name.append("_").append(parts.bookmark.substr(1));
        topics.ListAliases.Add(std::move(name)).SetSubItem(alias_cell::kPath, target);
    }
    main.editor.ActiveDirty = true;
}

void DeleteKeyFromIndex(KeywordState& keywords, std::string_view key, std::string_view path) {
    keywords.index_dirty = true;
    const KeyParts parts = SplitBookmark(key);
    const std::string target = std::string(path).append(parts.bookmark);
    ListView& table = keywords.ListKeywords;
    std::string identity(parts.key);
    ListRow* row = table.FirstWith(IDX_FULLKEY, identity);
    if (row == nullptr) {
        identity = StripKeyNote(identity);
        row = table.FirstWith(IDX_FULLKEY, identity);
    }
    if (row == nullptr) return;

    std::string kept;
    std::string_view old = row->SubItems(IDX_TITLEPATH);
    for (std::size_t end = old.find(kTargetEnd); end != npos; end = old.find(kTargetEnd)) {
        const std::string_view entry = old.substr(0, end + kTargetEnd.size());
        if (!FindIgnoringCase(entry, target)) kept += entry;
        old.remove_prefix(entry.size());
    }
    if (!kept.empty()) {
        row->SetSubItem(IDX_TITLEPATH, std::move(kept));
        return;
    }
    const int position = table.PositionOf(*row);
    const ListRow* next = position < table.Count() ? &table.At(position + 1) : nullptr;
    if (next != nullptr && Contains(next->SubItems(IDX_FULLKEY), identity + kSubKeyMark)) {
        row->SetSubItem(IDX_TITLEPATH, {});
        return;
    }
    const std::size_t mark = identity.find(kSubKeyMark);
    if (mark != npos && position > 1) {
        const std::string main_key = identity.substr(0, mark);
        const ListRow& head = table.At(position - 1);
        const bool is_bare_head =
            EqualsIgnoringCase(head.Text(), main_key) && head.SubItems(IDX_TITLEPATH).empty();
        // The text of a row never holds the mark, so the head goes although sub-keys may follow.
        const bool is_needed =
            next != nullptr && Contains(next->Text(), UpperUnicode(main_key + kSubKeyMark));
        if (is_bare_head && !is_needed) {
            table.Remove(position);
            table.Remove(position - 1);
            return;
        }
    }
    table.Remove(position);
}

void RenameTitleInIndex(KeywordState& keywords, std::string_view new_title,
                        std::string_view old_title, std::string_view path) {
    const std::string target = std::string(">").append(path);
    ListView& table = keywords.ListKeywords;
    for (int i = 1; i <= table.Count(); ++i) {
        ListRow& row = table.At(i);
        const std::string& targets = row.SubItems(IDX_TITLEPATH);
        if (!FindIgnoringCase(targets, target)) continue;
        row.SetSubItem(IDX_TITLEPATH, WithTitle(targets, old_title, new_title));
        keywords.index_dirty = true;
    }
}

}  // namespace quorrel
