#include "contents/contents_tree.hpp"

#include <initializer_list>
#include <string>

#include "app/commands.hpp"
#include "app/main_form.hpp"
#include "contents/contents_item_panel.hpp"
#include "platform/meanwhile.hpp"

namespace quorrel {
namespace {

constexpr int kDeleteKey = 46;

bool IsRemoved(const TreeChange& change, const TreeNode* node) {
    for (; node != nullptr; node = node->Parent()) {
        if (node->Parent() != change.parent) continue;
        return node->Row() >= change.row && node->Row() < change.row + change.count;
    }
    return false;
}

void ForgetNodes(ContentsState& contents, const TreeChange& change) {
    const bool all = change.kind == TreeChange::Kind::kClear;
    if (!all && change.kind != TreeChange::Kind::kRemove) return;
    const auto goes = [&](const TreeNode* node) {
        return node != nullptr && (all || IsRemoved(change, node));
    };
    for (TreeNode** node : {&contents.PubOverNode, &contents.drag_node, &contents.drag_origin,
                            &contents.dropped_node}) {
        if (goes(*node)) *node = nullptr;
    }
    if (!goes(contents.toc_item_node)) return;
    contents.toc_item_node = nullptr;
    // Its edits have no place to go to.
    contents.toc_item_dirty = false;
    contents.toc_item_changed.Emit();
}

bool Holds(const ListView& table, const ListRow* wanted) {
    for (int i = 1; i <= table.Count(); ++i) {
        if (&table.At(i) == wanted) return true;
    }
    return false;
}

void ForgetRow(MainForm& main) {
    ListRow*& row = main.contents.drag_list_item;
    if (row == nullptr) return;
    if (Holds(main.topics.ListTopics, row) || Holds(main.keywords.ListKeywords, row)) return;
    row = nullptr;
}

/// The node goes to another place beside `target`.
void MoveBeside(MainForm& main, TreeNode& node, TreeNode& target, NodeRelation relation) {
    TreeView& tree = main.contents.Tree1;
    TreeNode& moved = CopyNode(tree, node, target, relation);
    tree.Select(&moved);
    tree.Remove(node);
    tree.EnsureVisible(moved);
}

void MoveInto(MainForm& main, TreeNode& node, TreeNode& book) {
    TreeView& tree = main.contents.Tree1;
    book.Image = node_image::kOpenBook;
    book.SelectedImage = node_image::kOpenBook;
    tree.SetParent(node, &book);
    tree.EnsureVisible(node);
    tree.node_changed.Emit(book);
    tree.Select(&node);
}

}  // namespace

void SetContentsDirty(MainForm& main) {
    main.project.project_dirty = true;
    main.contents.toc_dirty = true;
}

TreeNode& CopyNode(TreeView& tree, TreeNode& node, TreeNode& target, NodeRelation relation) {
    TreeNode& copy = tree.Add(&target, relation, node.Text, node.Image, node.SelectedImage);
    copy.Tag = node.Tag;
    tree.MoveChildren(node, copy);
    copy.Expanded = node.Expanded;
    tree.node_changed.Emit(copy);
    return copy;
}

bool Tree1_AfterLabelEdit(MainForm& main, std::string_view caption) {
    ContentsState& contents = main.contents;
    contents.toc_dirty = true;
    if (caption.empty()) {
        main.screen.ShowMessage({"You must enter some text for this Contents item.",
                                 main.settings.APP_NAME, MessageButtons::kOk,
                                 MessageIcon::kExclamation});
        return false;
    }
    TreeNode* node = contents.Tree1.SelectedItem();
    if (node == nullptr || node->Text == caption) return true;
    node->Text = caption;
    contents.Tree1.node_changed.Emit(*node);
    main.project.project_dirty = true;
    return true;
}

void TreeNodeChanged(MainForm& main) {
    ContentsState& contents = main.contents;
    main.screen.DoEvents();
    if (contents.toc_item_dirty) {
        {
            const Meanwhile disabled(contents.Tree1.Enabled, false);
            SaveTOCProperties(main);
        }
        main.screen.DoEvents();
    }
    if (contents.Tree1.SelectedItem() == nullptr) return;
    contents.drag_node = nullptr;
    contents.Tree1.SetDropHighlight(nullptr);
    LoadTOCProperties(main);
}

void Tree1_MouseDown(MainForm& main, double x, double y) {
    main.contents.PubOverNode = main.contents.Tree1.HitTest(x, y);
    TreeNodeChanged(main);
}

void Tree1_KeyUp(MainForm& main, int code) {
    if (code == kDeleteKey) pop1delete_Click(main);
    TreeNodeChanged(main);
}

void mnutreepop_Opening(MainForm& main) {
    const bool has_project = !main.project.proj.empty();
    if (has_project) CommitContentsItem(main);
    for (const char* name : {"popnewtopic", "popnewbook", "popnewbooktopic", "pop1delete"}) {
        SetEnabled(main, name, has_project);
    }
    if (main.contents.Tree1.SelectedItem() == nullptr) SetEnabled(main, "pop1delete", false);
}

void popnewbook_Click(MainForm& main) {
    TreeView& tree = main.contents.Tree1;
    TreeNode& book = tree.Add(tree.SelectedItem(), NodeRelation::kNext, "New Folder",
                              node_image::kOpenBook, node_image::kOpenBook);
    tree.EnsureVisible(
        tree.Add(&book, NodeRelation::kChild, "New Topic", node_image::kPage, node_image::kPage));
    SetContentsDirty(main);
}

void pop1delete_Click(MainForm& main) {
    TreeView& tree = main.contents.Tree1;
    TreeNode* node = tree.SelectedItem();
    if (node == nullptr) return;
    if (node->Children() > 0 &&
        main.screen.ShowMessage({"Are you sure you want to delete this item and all its children?",
                                 main.settings.APP_NAME, MessageButtons::kYesNo,
                                 MessageIcon::kExclamation}) != MessageAnswer::kYes) {
        return;
    }
    tree.Remove(*node);
    SetContentsDirty(main);
}

bool MoveSelectedNode(MainForm& main, NodeMove direction) {
    TreeNode* node = main.contents.Tree1.SelectedItem();
    if (node == nullptr) return false;
    CommitContentsItem(main);
    switch (direction) {
        case NodeMove::kUp:
            if (node->Previous() == nullptr) return false;
            MoveBeside(main, *node, *node->Previous(), NodeRelation::kPrevious);
            break;
        case NodeMove::kDown:
            if (node->Next() == nullptr) return false;
            MoveBeside(main, *node, *node->Next(), NodeRelation::kNext);
            break;
        case NodeMove::kIn:
            if (node->Previous() == nullptr) return false;
            MoveInto(main, *node, *node->Previous());
            break;
        case NodeMove::kOut:
            if (node->Parent() == nullptr) return false;
            MoveBeside(main, *node, *node->Parent(), NodeRelation::kNext);
            break;
    }
    SetContentsDirty(main);
    LoadTOCProperties(main);
    return true;
}

void KeepContentsReferences(MainForm& main) {
    main.contents.Tree1.changing.Connect(
        [&contents = main.contents](const TreeChange& change) { ForgetNodes(contents, change); });
    for (ListView* table : {&main.topics.ListTopics, &main.keywords.ListKeywords}) {
        table->rows_changed.Connect([&main] { ForgetRow(main); });
    }
}

}  // namespace quorrel
