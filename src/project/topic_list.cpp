#include "project/topic_list.hpp"

#include <string>

#include "app/commands.hpp"
#include "app/main_form.hpp"
#include "editor/save_html.hpp"
#include "platform/text.hpp"
#include "project/open_topic.hpp"
#include "project/paths.hpp"
#include "project/topic_rows.hpp"

namespace quorrel {

void mnulistpop_Opening(MainForm& main) {
    const bool has_rows = main.topics.ListTopics.Count() > 0;
    for (const std::string_view name :
         {"poplstopen", "poplstproperties", "poplstremove", "poplstdelete", "popcopyinteger"}) {
        SetEnabled(main, name, has_rows);
    }
    SetEnabled(main, "poplstnewtopic", !main.project.proj.empty());
}

void poplstopen_Click(MainForm& main) {
    const ListRow* row = main.topics.ListTopics.SelectedItem();
    if (row != nullptr) OpenTopicRow(main, *row);
}

void poplstproperties_Click(MainForm& main) {
    poplstopen_Click(main);
    WaitForSurface(main);
    main.window.TabStrip2.SelectedIndex = right_tab::kProperties;
}

void poplstremove_Click(MainForm& main) {
    if (MayRemoveTopic(main, false)) RemoveTopic(main, false);
}

void poplstdelete_Click(MainForm& main) {
    if (MayRemoveTopic(main, true)) RemoveTopic(main, true);
}

void popcopyinteger_Click(MainForm& main) {
    MenuEntry& entry = main.window.Named("popcopyinteger");
    entry.Checked = !entry.Checked();
}

void ListTopics_Click(MainForm& main) {
    const ListRow* row = main.topics.ListTopics.SelectedItem();
    if (row == nullptr || !main.window.Named("popcopyinteger").Checked) return;
    main.screen.SetClipboardText(row->SubItems(topic_cell::kInteger));
}

void ListTopics_DragStart(MainForm& main) {
    ListRow* row = main.topics.ListTopics.SelectedItem();
    if (row == nullptr) return;
    ContentsState& contents = main.contents;
    contents.drag_list_item = row;
    contents.drag_source = drag_kind::kTopicRow;
    const std::string link =
        MakeRelPathRel(row->SubItems(topic_cell::kFullPath), main.editor.main_path);
    contents.tree_drag_text =
        " <a href=" + ReplaceAll(link, "\\", "/") + " >" + row->Text() + "</a> ";
}

void ListTopics_DragEnd(MainForm& main) {
    main.contents.drag_list_item = nullptr;
    main.contents.drag_source = drag_kind::kNone;
}

}  // namespace quorrel
