#include "contents/contents_drag.hpp"

#include <string>

#include "app/main_form.hpp"
#include "contents/contents_item_panel.hpp"
#include "contents/contents_tree.hpp"
#include "contents/node_data.hpp"
#include "contents/topic_keywords.hpp"
#include "platform/text.hpp"
#include "project/paths.hpp"

namespace quorrel {
namespace {

constexpr double kScanFrom = 1000;  // twips to the right of the pointer
constexpr double kScanStep = 100;
constexpr double kLowerPart = 120;  // twips above the lower edge of a row

std::string DragText(const MainForm& main, const TreeNode& node) {
    const std::string location = UnpackNodeData(node.Tag).location;
    if (location.empty()) return node.Text;
    const std::string link = RelativeLocation(location, main.editor.main_path);
    return " <a href=" + ReplaceAll(link, "\\", "/") + " >" + node.Text + "</a> ";
}

/// The node in the row at that height, also for a pointer beside its caption.
TreeNode* NodeInRow(const TreeView& tree, double x, double y) {
    TreeNode* node = tree.HitTest(x, y);
    if (tree.Count() == 0) return node;
    for (double xx = x + kScanFrom; node == nullptr && xx > 0; xx -= kScanStep) {
        node = tree.HitTest(xx, y);
    }
    return node;
}

int EffectOverNode(ContentsState& contents, TreeNode* node) {
    if (contents.drag_source != drag_kind::kTreeNode) {
        if (contents.drag_list_item == nullptr) return drop_effect::kNone;
        contents.Tree1.SetDropHighlight(node);
        return drop_effect::kCopy;
    }
    if (contents.drag_node == nullptr || node == nullptr) return drop_effect::kNone;
    // By the captions: a target elsewhere that has the path of the node in its own is refused too.
    contents.is_target_refused = Contains(node->FullPath(), contents.drag_node->FullPath() + "\\");
    return contents.is_target_refused ? drop_effect::kNone : drop_effect::kMove;
}

bool IsInside(const TreeNode* node, const TreeNode& top) {
    for (; node != nullptr; node = node->Parent()) {
        if (node == &top) return true;
    }
    return false;
}

void DropTopicRow(MainForm& main, TreeNode* target, NodeRelation relation) {
    ContentsState& contents = main.contents;
    TreeView& tree = contents.Tree1;
    const ListRow* row = contents.drag_list_item;
    if (row != nullptr) {
        TreeNode& node =
            tree.Add(target, relation, row->Text(), node_image::kPage, node_image::kPage);
        node.Tag = PackNodeData(row->SubItems(topic_cell::kFullPath),
                                row->SubItems(topic_cell::kMapId), "");
        tree.node_changed.Emit(node);
        tree.SetDropHighlight(nullptr);
        tree.Select(&node);
        contents.dropped_node = &node;
        SetContentsDirty(main);
    }
    contents.drag_list_item = nullptr;
    contents.drag_source = drag_kind::kNone;
    LoadTOCProperties(main);
    tree.SetFocus();
}

void DropNode(MainForm& main, TreeNode* target, NodeRelation relation) {
    ContentsState& contents = main.contents;
    TreeNode* node = contents.drag_node;
    // At the end of the drag the old node goes with all that is in it.
    if (node == nullptr || target == nullptr || IsInside(target, *node)) {
        contents.tree_drag_no_delete = true;
        return;
    }
    contents.dropped_node = &CopyNode(contents.Tree1, *node, *target, relation);
    contents.drag_node = nullptr;
    contents.drag_source = drag_kind::kNone;
    SetContentsDirty(main);
    LoadTOCProperties(main);
}

}  // namespace

int Tree1_OLEStartDrag(MainForm& main) {
    ContentsState& contents = main.contents;
    TreeView& tree = contents.Tree1;
    if (contents.PubOverNode != nullptr) tree.Select(contents.PubOverNode);
    if (contents.drag_node == nullptr) contents.drag_node = tree.SelectedItem();
    contents.drag_origin = contents.drag_node;
    contents.dropped_node = nullptr;
    if (contents.drag_node != nullptr) {
        contents.drag_node->Bold = true;
        tree.node_changed.Emit(*contents.drag_node);
    }
    contents.drop_landed = false;
    contents.drag_source = drag_kind::kTreeNode;
    const TreeNode* node = tree.SelectedItem();
    contents.tree_drag_text = node == nullptr ? std::string() : DragText(main, *node);
    return drop_effect::kCopy + drop_effect::kMove;
}

int Tree1_OLEDragOver(MainForm& main, double x, double y) {
    ContentsState& contents = main.contents;
    TreeView& tree = contents.Tree1;
    TreeNode* node = NodeInRow(tree, x, y);
    tree.SetDropHighlight(node);
    if (node != nullptr || tree.Count() == 0) return EffectOverNode(contents, node);
    return contents.drag_source == drag_kind::kTreeNode ? drop_effect::kNone : drop_effect::kCopy;
}

bool DropsBefore(const MainForm& main, double x, double y) {
    const TreeView& tree = main.contents.Tree1;
    const TreeNode* below = tree.HitTest(x, y + kLowerPart);
    return below != nullptr && below == tree.DropHighlight();
}

void Tree1_OLEDragDrop(MainForm& main, double x, double y) {
    ContentsState& contents = main.contents;
    contents.tree_drag_no_delete = false;
    contents.drop_landed = true;
    TreeNode* target = contents.Tree1.DropHighlight();
    const NodeRelation relation =
        DropsBefore(main, x, y) ? NodeRelation::kPrevious : NodeRelation::kNext;
    if (contents.drag_source == drag_kind::kTopicRow) return DropTopicRow(main, target, relation);
    DropNode(main, target, relation);
}

int Tree1_OLECompleteDrag(MainForm& main) {
    ContentsState& contents = main.contents;
    TreeView& tree = contents.Tree1;
    int effect = contents.drop_landed ? drop_effect::kMove : drop_effect::kCopy;
    if (contents.tree_drag_no_delete) effect = drop_effect::kNone;
    TreeNode* origin = contents.drag_origin;
    contents.tree_drag_no_delete = false;
    contents.drag_origin = nullptr;
    if (origin != nullptr && origin->Bold) {
        origin->Bold = false;
        tree.node_changed.Emit(*origin);
    }
    tree.SetDropHighlight(nullptr);
    contents.drag_node = nullptr;
    contents.drag_list_item = nullptr;
    contents.drag_source = drag_kind::kNone;
    const bool has_moved = effect == drop_effect::kMove && contents.dropped_node != nullptr;
    if (!has_moved || origin == nullptr) return effect;
    // The author goes on with the node at its new place.
    tree.Select(contents.dropped_node);
    tree.Remove(*origin);
    LoadTOCProperties(main);
    return effect;
}

bool TakeDropOnSurface(MainForm& main) {
    ContentsState& contents = main.contents;
    contents.surface_took_drop =
        contents.drag_source != drag_kind::kNone && !contents.tree_drag_text.empty();
    return contents.surface_took_drop;
}

void InsertDroppedText(MainForm& main) {
    ContentsState& contents = main.contents;
    if (!contents.surface_took_drop) return;
    contents.surface_took_drop = false;
    const std::string text = std::exchange(contents.tree_drag_text, {});
    if (text == kKeywordDragMark) return CommandAddFromIndex_Click(main);
    const auto range = main.DHTMLEdit1.DOM().selection().createRange();
    if (range != nullptr) range->pasteHTML(text);
}

}  // namespace quorrel
