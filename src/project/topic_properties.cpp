#include "project/topic_properties.hpp"

#include <algorithm>
#include <optional>
#include <vector>

#include "app/main_form.hpp"
#include "contents/keyword_store.hpp"
#include "editor/document_text.hpp"
#include "editor/load_file.hpp"
#include "editor/save_html.hpp"
#include "platform/text.hpp"
#include "platform/unicode.hpp"
#include "project/save_project.hpp"
#include "project/working_copy.hpp"

namespace quorrel {
namespace {

/// The ";"-closed entries of a keywords cell, as they stand there.
std::vector<std::string> Entries(std::string_view cell) {
    std::vector<std::string> entries;
    for (std::size_t end = cell.find(';'); end != npos; end = cell.find(';')) {
        entries.emplace_back(cell.substr(0, end));
        cell.remove_prefix(end + 1);
    }
    return entries;
}

std::string ShownKey(std::string_view entry) {
    return ReplaceAll(entry, kSubKeyMark, ":");
}

/// Gives a keyword the spelling that the author typed anew.
void RespellKeyword(MainForm& main, const std::string& entry, const std::string& new_key) {
    ListView& table = main.keywords.ListKeywords;
    const std::string full_key = ReplaceAll(entry, ":", kSubKeyMark);
    for (int i = 1; i <= table.Count(); ++i) {
        ListRow& row = table.At(i);
        if (!Contains(row.SubItems(keyword_cell::IDX_FULLKEY), full_key)) continue;
        row.SetText(ReplaceAll(row.Text(), entry, new_key));
    }
    table.SortBy(table.SortColumn());
    // The mode is set whatever the project is.
    main.project.help_mode = 1;
    main.keywords.index_dirty = true;
}

/// Takes retyped and deleted keywords into the store. Gives the entries of the old cell in the
/// spelling that they have now.
std::vector<std::string> CompareKeywords(MainForm& main, const std::string& old_cell) {
    const std::vector<std::string>& typed = main.window.ListKeys.List();
    std::vector<std::string> known;
    for (const std::string& full : Entries(old_cell)) {
        const std::string entry = ShownKey(full);
        const auto found = std::find_if(typed.begin(), typed.end(), [&](const std::string& key) {
            return EqualsIgnoringCase(key, entry);
        });
        if (found == typed.end()) {
            DeleteKeyFromIndex(main.keywords, entry, main.editor.main_path);
            continue;
        }
        if (*found != entry) RespellKeyword(main, entry, *found);
        known.push_back(*found);
    }
    return known;
}

/// The new cell; keys that are not `known` go into the store, the others take a new title there.
std::string BuildCell(MainForm& main, const std::vector<std::string>& known,
                      const std::string& old_title) {
    const std::string& title = main.window.EditTitle.Text;
    const std::string& path = main.editor.main_path;
    std::string cell;
    std::optional<std::vector<ListRow*>> rows;
    for (const std::string& key : std::vector<std::string>(main.window.ListKeys.List())) {
        if (key.empty()) break;
        const std::string entry = ReplaceAll(key, ":", kSubKeyMark) + ";";
        cell += entry;
        if (std::find(known.begin(), known.end(), key) == known.end()) {
            AddToIndex(main, title, path, entry);
            rows.reset();
        } else if (old_title != title) {
            // Once for each key: a new title that has the old one in it grows with each.
            if (!rows) rows = KeywordsOfTopic(main.keywords, path);
            RenameTitleInIndex(main.keywords, *rows, title, old_title, path);
        }
    }
    return cell;
}

}  // namespace

void SyncTopicSelection(MainForm& main) {
    ListView& table = main.topics.ListTopics;
    ListRow* row = table.FirstWith(topic_cell::kFullPath, TopicPath(main.editor.main_path));
    main.topics.current_topic_index = row == nullptr ? 0 : table.PositionOf(*row);
    if (row != nullptr) table.Select(row);
    StatusBar& status = main.window.StatusBar1;
    const ListRow* selected = table.SelectedItem();
    status.SetPanel(
        2, selected == nullptr ? std::string() : main.files.NativePath(main.editor.main_path));
    status.SetPanel(1, selected == nullptr ? std::string() : selected->Text());
}

void LoadTopicProperties(MainForm& main) {
    SyncTopicSelection(main);
    WindowControls& window = main.window;
    window.ListKeys.Clear();
    window.CommandEdit.Enabled = false;
    window.CommandDelete.Enabled = false;
    if (main.topics.current_topic_index > 0) {
        const ListRow& row = main.topics.ListTopics.At(main.topics.current_topic_index);
        window.EditTitle.Text = row.Text();
        window.EditAlias.Text = row.SubItems(topic_cell::kMapId);
        window.EditInteger.Text = row.SubItems(topic_cell::kInteger);
        for (const std::string& entry : Entries(row.SubItems(topic_cell::kKeywords))) {
            const std::string key = entry.substr(0, entry.find("##"));
            const ListView& store = main.keywords.ListKeywords;
            if (store.FirstWithExactly(keyword_cell::IDX_FULLKEY, key) == nullptr) continue;
            window.ListKeys.AddItem(ShownKey(entry));
        }
    }
    if (window.ListKeys.ListCount() > 0) {
        window.ListKeys.ListIndex = 0;
        window.CommandEdit.Enabled = true;
        window.CommandDelete.Enabled = true;
    }
    main.editor.TopicPropDirty = false;
}

void SaveTopicProperties(MainForm& main) {
    TopicTables& topics = main.topics;
    if (main.project.proj.empty() || topics.current_topic_index < 1 || IsTemplateOpen(main)) return;
    ListRow& row = topics.ListTopics.At(topics.current_topic_index);
    const std::string old_title = row.Text();
    row.SetText(main.window.EditTitle.Text());
    row.SetSubItem(topic_cell::kMapId, main.window.EditAlias.Text());
    row.SetSubItem(topic_cell::kInteger, main.window.EditInteger.Text());
    // A new title may have moved the row.
    topics.current_topic_index = topics.ListTopics.PositionOf(row);
    SetDocumentTitle(main, main.window.EditTitle.Text());
    main.editor.ActiveDirty = true;
    main.project.project_dirty = true;
    const auto known = CompareKeywords(main, row.SubItems(topic_cell::kKeywords));
    row.SetSubItem(topic_cell::kKeywords, BuildCell(main, known, old_title));
    main.editor.TopicPropDirty = false;
    SetDirty(main);
    main.editor.TopicPropDirty = false;
}

std::string WithTitle(std::string_view html, std::string_view title) {
    constexpr std::string_view kTag = "<TITLE>";
    const std::size_t tag = FindIgnoringAsciiCase(html, kTag);
    if (tag == npos) return std::string(html);
    const std::size_t start = tag + kTag.size();
    const std::size_t end = std::min(html.find('<', start), html.size());
    return std::string(html.substr(0, start)).append(title).append(html.substr(end));
}

void SetDocumentTitle(MainForm& main, std::string_view title) {
    EditSurface& surface = main.DHTMLEdit1;
    WaitForSurface(main);
    TakeBackSource(main);
    const std::string old_text = surface.DocumentHTML();
    const std::string new_text = WithTitle(old_text, title);
    if (new_text == old_text) return;
    const std::string base = surface.BaseURL();
    surface.SetDocumentHTML(new_text);
    surface.SetBaseURL(base);
    if (main.editor.SourceViewActive) FollowInSource(main);
}

}  // namespace quorrel
