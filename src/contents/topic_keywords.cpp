#include "contents/topic_keywords.hpp"

#include <string>

#include "app/main_form.hpp"
#include "contents/contents_drag.hpp"
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

void EnableLineButtons(WindowControls& window, bool on) {
    window.CommandEdit.Enabled = on;
    window.CommandDelete.Enabled = on;
}

/// The fields of a page that is not shown may be those of another topic.
void EnsurePropertiesLoaded(MainForm& main) {
    const bool is_shown = main.window.TabStrip2.SelectedIndex() == right_tab::kProperties;
    if (!is_shown && !main.editor.TopicPropDirty) LoadTopicProperties(main);
}

}  // namespace

void Command1_Click(MainForm& main) {
    WindowControls& window = main.window;
    main.editor.TopicPropDirty = true;
    const std::string key(Trim(window.EditKeyword.Text()));
    const std::string sub(Trim(window.EditSubKey.Text()));
    if (!sub.empty() && key.empty()) {
        Tell(main, "You must enter a main keyword");
        return window.EditKeyword.SetFocus();
    }
    const std::string line = sub.empty() ? key : key + ":" + sub;
    ListBox& list = window.ListKeys;
    const int present = list.Find(line);
    if (present >= 0) {
        list.ListIndex = present;
    } else {
        if (main.keywords.keyword_edit_mode) list.RemoveItem(list.ListIndex);
        list.AddItem(line);
        list.ListIndex = list.NewIndex();
        EnableLineButtons(window, true);
    }
    main.keywords.keyword_edit_mode = false;
    window.EditKeyword.Text = std::string();
    window.EditSubKey.Text = std::string();
    window.EditKeyword.SetFocus();
}

void CommandEdit_Click(MainForm& main) {
    WindowControls& window = main.window;
    if (window.ListKeys.ListIndex < 0) return;
    main.keywords.keyword_edit_mode = true;
    const std::string line = window.ListKeys.Text();
    const std::size_t colon = line.find(':');
    window.EditSubKey.Text = colon == npos ? std::string() : line.substr(colon + 1);
    window.EditKeyword.Text = line.substr(0, colon);
    window.EditKeyword.SetFocus();
}

void CommandDelete_Click(MainForm& main) {
    ListBox& list = main.window.ListKeys;
    const int position = list.ListIndex;
    if (position < 0) return;
    list.RemoveItem(position);
    if (list.ListCount() > 0) {
        list.ListIndex = std::min(position, list.ListCount() - 1);
    } else {
        EnableLineButtons(main.window, false);
    }
    main.editor.TopicPropDirty = true;
    main.keywords.keyword_edit_mode = false;
}

void CommandAddFromIndex_Click(MainForm& main) {
    const ListRow* row = main.keywords.ListKeywords.SelectedItem();
    if (main.topics.current_topic_index < 1 || row == nullptr) return;
    EnsurePropertiesLoaded(main);
    ListBox& list = main.window.ListKeys;
    const std::string key = ReplaceAll(row->SubItems(keyword_cell::IDX_FULLKEY), kSubKeyMark, ":");
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
    EnableLineButtons(window, false);
    for (TextBox* edit : {&window.EditTitle, &window.EditAlias, &window.EditInteger}) {
        FollowProperty(*edit, edit->Text, [&main] { main.editor.TopicPropDirty = true; });
    }
}

}  // namespace quorrel
