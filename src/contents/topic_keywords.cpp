#include "contents/topic_keywords.hpp"

#include <string>

#include "app/main_form.hpp"
#include "contents/contents_drag.hpp"
#include "contents/key_fields.hpp"
#include "contents/keyword_spelling.hpp"
#include "platform/controls/follow.hpp"
#include "platform/text.hpp"
#include "project/topic_properties.hpp"

namespace quorrel {
namespace {

constexpr int kDeleteKey = 46;

void Tell(MainForm& main, const char* text) {
    main.screen.ShowMessage(
        {text, main.settings.APP_NAME, MessageButtons::kOk, MessageIcon::kExclamation});
}

KeyFields KeyFieldsOf(MainForm& main) {
    WindowControls& window = main.window;
    return {window.ListKeys,    window.EditKeyword,   window.EditSubKey,
            window.CommandEdit, window.CommandDelete, main.keywords.keyword_edit_mode};
}

/// The fields of a page that is not shown may be those of another topic.
void EnsurePropertiesLoaded(MainForm& main) {
    const bool is_shown = main.window.TabStrip2.SelectedIndex() == right_tab::kProperties;
    if (!is_shown && !main.editor.TopicPropDirty) LoadTopicProperties(main);
}

}  // namespace

void Command1_Click(MainForm& main) {
    main.editor.TopicPropDirty = true;
    AddKey(main, KeyFieldsOf(main));
}

void CommandEdit_Click(MainForm& main) {
    EditKey(KeyFieldsOf(main));
}

void CommandDelete_Click(MainForm& main) {
    if (DeleteKey(KeyFieldsOf(main))) main.editor.TopicPropDirty = true;
}

void CommandAddFromIndex_Click(MainForm& main) {
    const ListRow* row = main.keywords.ListKeywords.SelectedItem();
    if (main.topics.current_topic_index < 1 || row == nullptr) return;
    EnsurePropertiesLoaded(main);
    ListBox& list = main.window.ListKeys;
    const std::string key = ShownKey(row->SubItems(keyword_cell::IDX_FULLKEY));
    const int present = list.Find(key);
    if (present >= 0) {
        list.ListIndex = present;
        return;
    }
    list.AddItem(key);
    main.editor.TopicPropDirty = true;
}

void EditKeyword_Change(MainForm& main) {
    main.window.Command1.Enabled = !main.window.EditKeyword.Text().empty();
}

void ListKeys_DblClick(MainForm& main) {
    CommandEdit_Click(main);
}

int ListKeys_OLEDragOver(const MainForm& main) {
    const bool is_keyword = main.contents.drag_source == drag_kind::kKeywordRow;
    return is_keyword ? drop_effect::kCopy : drop_effect::kNone;
}

void ListKeys_OLEDragDrop(MainForm& main) {
    CommandAddFromIndex_Click(main);
    main.contents.drag_list_item = nullptr;
    main.contents.drag_source = drag_kind::kNone;
}

int ListKeywords_OLEStartDrag(MainForm& main) {
    ContentsState& contents = main.contents;
    if (contents.drag_list_item == nullptr) {
        contents.drag_list_item = main.keywords.ListKeywords.SelectedItem();
    }
    contents.drag_source = drag_kind::kKeywordRow;
    contents.tree_drag_text = kKeywordDragMark;
    return drop_effect::kCopy;
}

void ListKeywords_OLECompleteDrag(MainForm& main) {
    main.contents.drag_node = nullptr;
    main.contents.drag_list_item = nullptr;
    main.contents.drag_source = drag_kind::kNone;
}

void ListKeywords_KeyUp(MainForm& main, int code) {
    if (code != kDeleteKey || main.keywords.ListKeywords.SelectedItem() == nullptr) return;
    const MessageAnswer answer = main.screen.ShowMessage(
        {"Are you sure you want to delete this index entry?", main.settings.APP_NAME,
         MessageButtons::kYesNo, MessageIcon::kQuestion});
    if (answer == MessageAnswer::kYes) popidelete_Click(main);
}

void popidelete_Click(MainForm& main) {
    ListView& table = main.keywords.ListKeywords;
    const ListRow* row = table.SelectedItem();
    if (row == nullptr) return;
    const int position = table.PositionOf(*row);
    const std::string sub_keys = row->SubItems(keyword_cell::IDX_FULLKEY) + kSubKeyMark;
    if (position < table.Count() &&
        Contains(table.At(position + 1).SubItems(keyword_cell::IDX_FULLKEY), sub_keys)) {
        return Tell(main, "You must delete all of this keywords sub-entries first");
    }
    table.Remove(position);
}

void ConnectTopicKeywords(MainForm& main) {
    WindowControls& window = main.window;
    FollowProperty(window.EditKeyword, window.EditKeyword.Text,
                   [&main] { EditKeyword_Change(main); });
    EditKeyword_Change(main);
    window.CommandEdit.Enabled = window.CommandDelete.Enabled = false;
    for (TextBox* edit : {&window.EditTitle, &window.EditAlias, &window.EditInteger}) {
        FollowProperty(*edit, edit->Text, [&main] { main.editor.TopicPropDirty = true; });
    }
}

}  // namespace quorrel
