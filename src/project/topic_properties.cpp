#include "project/topic_properties.hpp"

#include <algorithm>
#include <utility>
#include <vector>

#include "app/main_form.hpp"
#include "contents/keyword_spelling.hpp"
#include "contents/keyword_store.hpp"
#include "contents/topic_key_changes.hpp"
#include "editor/document_text.hpp"
#include "editor/load_file.hpp"
#include "editor/save_html.hpp"
#include "platform/text.hpp"
#include "project/keyword_cell.hpp"
#include "project/save_project.hpp"
#include "project/topic_identifier.hpp"
#include "project/topic_title.hpp"
#include "project/working_copy.hpp"

namespace quorrel {
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
        std::vector<std::string> keys;
        for (const std::string& entry : KeysOfCell(row.SubItems(topic_cell::kKeywords))) {
            const std::string key = entry.substr(0, entry.find("##"));
            if (KeywordRow(main.keywords.ListKeywords, key) == nullptr) continue;
            keys.push_back(ShownKey(entry));
        }
        window.ListKeys.AddItems(std::move(keys));
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
    ChangeTopicIdentifier(main, row, main.window.EditAlias.Text());
    main.window.EditAlias.Text = row.SubItems(topic_cell::kMapId);
    row.SetSubItem(topic_cell::kInteger, main.window.EditInteger.Text());
    // A new title may have moved the row.
    topics.current_topic_index = topics.ListTopics.PositionOf(row);
    // An author who has changed nothing but a keyword finds the topic's source as it was.
    if (row.Text() != old_title) SetDocumentTitle(main, row.Text());
    main.editor.ActiveDirty = true;
    main.project.project_dirty = true;
    SaveTopicKeywords(main, row, old_title);
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
    const std::string new_text = WithTitle(old_text, TitleInHtml(title));
    if (new_text == old_text) return;
    const std::string base = surface.BaseURL();
    surface.SetDocumentHTML(new_text);
    surface.SetBaseURL(base);
    if (main.editor.SourceViewActive) FollowInSource(main);
}

}  // namespace quorrel
