#include "project/topic_rows.hpp"

#include <algorithm>
#include <string>
#include <vector>

#include "app/main_form.hpp"
#include "contents/keyword_store.hpp"
#include "contents/new_topic_node.hpp"
#include "contents/node_data.hpp"
#include "editor/document_text.hpp"
#include "editor/load_file.hpp"
#include "platform/text.hpp"
#include "platform/unicode.hpp"
#include "project/keyword_cell.hpp"
#include "project/paths.hpp"
#include "project/save_project.hpp"
#include "project/topic_properties.hpp"
#include "project/working_copy.hpp"

namespace quorrel {
namespace {

void DeleteKeywords(MainForm& main, std::string_view cell, const std::string& path) {
    for (const std::string& key : KeysOfCell(cell)) DeleteKeyFromIndex(main.keywords, key, path);
}

bool IsInside(const TreeNode* node, const TreeNode& top) {
    for (; node != nullptr; node = node->Parent()) {
        if (node == &top) return true;
    }
    return false;
}

struct GoingNodes {
    std::vector<TreeNode*> nodes;  // those that lead to the topic
    std::size_t below = 0;         // further ones inside of these
};

/// The nodes that go with a topic: they lead to it itself and to no bookmark in it. The node that
/// moves up to the number of a removed one is passed over, so of two in a row the second stays.
GoingNodes NodesOfTopic(TreeView& tree, const std::string& path) {
    std::vector<TreeNode*> left;
    for (int i = 1; i <= tree.Count(); ++i) left.push_back(&tree.At(i));
    GoingNodes going;
    for (std::size_t i = 0; i < left.size(); ++i) {
        TreeNode* const node = left[i];
        if (!EqualsIgnoringCase(NodeLocation(node->Tag), path)) continue;
        going.nodes.push_back(node);
        const std::size_t gone =
            std::erase_if(left, [&](const TreeNode* other) { return IsInside(other, *node); });
        going.below += gone - 1;
    }
    return going;
}

void RemoveNodes(ContentsState& contents, const std::string& path) {
    for (TreeNode* node : NodesOfTopic(contents.Tree1, path).nodes) {
        contents.Tree1.Remove(*node);
        contents.toc_dirty = true;
    }
}

/// Removes the row and selects the one that comes to its place, or the one before.
void RemoveRow(TopicTables& topics, const ListRow& row) {
    ListView& table = topics.ListTopics;
    OpenRowKeeper keeper(topics);
    const int position = table.PositionOf(row);
    keeper.Forget(row);
    table.Remove(position);
    const int next = std::min(position, table.Count());
    table.Select(next == 0 ? nullptr : &table.At(next));
}

void CloseTopic(MainForm& main) {
    EditorState& editor = main.editor;
    editor.main_path.clear();
    CloseDocument(main, "There is no topic to show.");
    WindowControls& window = main.window;
    for (TextBox* edit : {&window.EditTitle, &window.EditAlias, &window.EditInteger}) {
        edit->Text = std::string();
    }
    LoadTopicProperties(main);
    // The emptied fields count as changed.
    editor.ActiveDirty = false;
    editor.TopicPropDirty = false;
}

void LeaveRemovedTopic(MainForm& main) {
    const ListRow* next = main.topics.ListTopics.SelectedItem();
    if (next == nullptr) return CloseTopic(main);
    main.editor.new_main_path = next->SubItems(topic_cell::kFullPath);
    LoadFile(main);
}

void DeleteTopicFile(MainForm& main, const std::string& path) {
    if (main.files.DeleteFile(path)) return;
    throw RuntimeError(main.files.FileExists(path) ? run_time_error::kPermissionDenied
                                                   : run_time_error::kFileNotFound);
}

/// What is not saved yet would go with the row of a topic whose file stays: it goes into the file
/// or away, as the user says. False if the topic is to stay.
bool SettleUnsavedChanges(MainForm& main, ListRow& row, bool is_open) {
    if (is_open && IsDocumentEdited(main) && !SetDirty(main)) return false;
    if (HasUnsavedCopy(main, row)) {
        const Message question = {
            main.files.NativePath(row.SubItems(topic_cell::kFullPath)) +
                " has changes that are not saved yet. The file stays where it is when the topic "
                "is removed from the project.\r\n\r\nDo you want to save the changes in it?",
            main.settings.APP_NAME, MessageButtons::kYesNoCancel, MessageIcon::kExclamation};
        const MessageAnswer answer = main.screen.ShowMessage(question);
        if (answer == MessageAnswer::kYes) return SaveTopic(main, row);
        if (answer != MessageAnswer::kNo) return false;
    }
    ForgetWorkingCopy(main, row);
    return true;
}

}  // namespace

OpenRowKeeper::OpenRowKeeper(TopicTables& topics) : topics_(topics), open_(nullptr) {
    const int index = topics.current_topic_index;
    if (index >= 1 && index <= topics.ListTopics.Count()) open_ = &topics.ListTopics.At(index);
}

OpenRowKeeper::~OpenRowKeeper() {
    topics_.current_topic_index = open_ == nullptr ? 0 : topics_.ListTopics.PositionOf(*open_);
}

void OpenRowKeeper::Forget(const ListRow& row) {
    if (open_ == &row) open_ = nullptr;
}

ListRow& AddTopic(MainForm& main, std::string_view title, std::string_view path,
                  std::string_view keywords, std::string_view alias, std::string_view integer) {
    const OpenRowKeeper keeper(main.topics);
    ListRow& row = main.topics.ListTopics.Add(std::string(title));
    row.SetSubItem(topic_cell::kFullPath, std::string(path));
    row.SetSubItem(topic_cell::kKeywords, std::string(keywords));
    row.SetSubItem(topic_cell::kMapId, std::string(alias));
    row.SetSubItem(topic_cell::kInteger, std::string(integer));
    row.SetSubItem(topic_cell::kLocation, LocationOf(path, main.project.proj_path));
    if (!keywords.empty()) AddToIndex(main, title, path, keywords);
    if (main.window.TabStrip1.SelectedIndex() == left_tab::kContents) {
        AddTopicNode(main.contents, title, path, alias);
    }
    return row;
}

bool MayRemoveTopic(MainForm& main, bool delete_file) {
    const ListRow* row = main.topics.ListTopics.SelectedItem();
    if (row == nullptr) return false;
    const std::string& path = row->SubItems(topic_cell::kFullPath);
    const std::size_t below = NodesOfTopic(main.contents.Tree1, path).below;
    if (!delete_file && below == 0) return true;
    std::string text;
    if (delete_file) text = main.files.NativePath(path) + " will be deleted.\r\n\r\n";
    if (below > 0) {
        text += below == 1 ? "1 item of the contents that lies below the topic goes with it"
                           : std::to_string(below) +
                                 " items of the contents that lie below the topic go with it";
        text += ".\r\n\r\n";
    }
    text += delete_file ? "Do you want to delete the topic?"
                        : "Do you want to remove the topic from the project?";
    return main.screen.ShowMessage({std::move(text), main.settings.APP_NAME, MessageButtons::kYesNo,
                                    MessageIcon::kExclamation, MessageAnswer::kNo}) ==
           MessageAnswer::kYes;
}

void RemoveTopic(MainForm& main, bool delete_file) {
    ListRow* row = main.topics.ListTopics.SelectedItem();
    if (row == nullptr) return;
    const Trap trap(main.log, "MainForm RemoveTopic: ");
    const std::string path = row->SubItems(topic_cell::kFullPath);
    const bool was_open = EqualsIgnoringCase(path, TopicPath(main.editor.main_path));
    if (!delete_file && !SettleUnsavedChanges(main, *row, was_open)) return;
    // Nothing of it may be left that opening the next one would put into its file.
    if (was_open) CloseDocument(main, "There is no topic to show.");
    const std::string keywords = row->SubItems(topic_cell::kKeywords);
    trap([&] { DeleteKeywords(main, keywords, path); });
    trap([&] { RemoveNodes(main.contents, path); });
    RemoveRow(main.topics, *row);
    if (was_open) trap([&] { LeaveRemovedTopic(main); });
    main.project.project_dirty = true;
    if (!delete_file) return;
    trap([&] { DeleteTopicFile(main, path); });
    const std::string copy = WorkingCopyOf(path);
    if (main.files.FileExists(copy)) trap([&] { DeleteTopicFile(main, copy); });
}

}  // namespace quorrel
