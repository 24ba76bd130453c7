#include "contents/topic_key_changes.hpp"

#include <string>
#include <unordered_map>
#include <unordered_set>
#include <vector>

#include "app/main_form.hpp"
#include "contents/keyword_spelling.hpp"
#include "contents/keyword_store.hpp"
#include "platform/text.hpp"
#include "platform/unicode.hpp"
#include "project/keyword_cell.hpp"

namespace quorrel {
namespace {

using Keys = std::vector<std::string>;

/// The lines of ListKeys, by which the entries of a cell are still there.
class TypedKeys {
  public:
    explicit TypedKeys(const Keys& lines) : exact_(lines.begin(), lines.end()) {
        for (const std::string& line : lines) any_case_.emplace(line, line);
    }
    /// The line that stands for an entry, or an empty text. One in another case of letters does
    /// where none is exactly the same.
    [[nodiscard]] std::string For(const std::string& entry) const {
        std::string shown = ShownKey(entry);
        if (exact_.contains(shown)) return shown;
        const auto found = any_case_.find(shown);
        return found == any_case_.end() ? std::string() : std::string(found->second);
    }

  private:
    std::unordered_set<std::string_view> exact_;
    std::unordered_map<std::string_view, std::string_view, IgnoringCaseHash, IgnoringCaseEqual>
        any_case_;
};

/// Full keys by the lines that stand for them; two may be shown alike.
using KnownKeys = std::unordered_multimap<std::string, std::string>;

/// Takes retyped and deleted keywords into the index. Gives those that stay.
KnownKeys CompareKeywords(MainForm& main, const ListRow& topic, const Keys& lines) {
    Keys entries = KeysOfCell(topic.SubItems(topic_cell::kKeywords));
    const TypedKeys typed(lines);
    Keys line_of;
    for (const std::string& entry : entries) line_of.push_back(typed.For(entry));
    const Keys before = entries;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (line_of[i].empty() || line_of[i] == ShownKey(before[i])) continue;
        RespellKeyword(main.keywords, main.topics.ListTopics, entries[i],
                       InLettersOf(entries[i], line_of[i]));
        // The mode is set whatever the project is.
        main.project.help_mode = 1;
        entries = KeysOfCell(topic.SubItems(topic_cell::kKeywords));
    }
    KnownKeys known;
    for (std::size_t i = 0; i < entries.size(); ++i) {
        if (line_of[i].empty()) {
            DeleteKeyFromIndex(main.keywords, entries[i], main.editor.main_path);
        } else {
            known.emplace(std::move(line_of[i]), std::move(entries[i]));
        }
    }
    return known;
}

/// The full key of a line that the topic did not have: that of the index, if it is there.
std::string NewKey(const KeywordState& keywords, const std::string& line) {
    const ListRow* row = KeywordShownAs(keywords.ListKeywords, line);
    return row == nullptr ? FullKeyOf(line) : row->SubItems(keyword_cell::IDX_FULLKEY);
}

}  // namespace

void SaveTopicKeywords(MainForm& main, ListRow& topic, std::string_view old_title) {
    const Keys lines = main.window.ListKeys.List();
    const std::string path = main.editor.main_path;
    KnownKeys known = CompareKeywords(main, topic, lines);
    if (topic.Text() != old_title) RenameTitleInIndex(main.keywords, topic.Text(), old_title, path);
    std::string cell;
    for (const std::string& line : lines) {
        if (line.empty()) break;
        if (const auto found = known.find(line); found != known.end()) {
            cell.append(found->second).append(";");
            known.erase(found);
            continue;
        }
        const std::string entry = NewKey(main.keywords, line) + ";";
        AddToIndex(main, topic.Text(), path, entry);
        cell += entry;
    }
    topic.SetSubItem(topic_cell::kKeywords, std::move(cell));
}

}  // namespace quorrel
