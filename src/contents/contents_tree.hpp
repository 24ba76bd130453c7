// Editing the tree of contents: captions, books, deletion, what the mouse and the keys do.
#pragma once

#include <string_view>

#include "platform/controls/tree_view.hpp"

namespace quorrel {

struct ContentsState;
struct MainForm;

/// The contents have to be written, the project has to be saved.
void SetContentsDirty(MainForm& main);

/// A new node beside `target` with the caption, the icons and the data of `node`, to which the
/// children of `node` move. `node` itself stays.
TreeNode& CopyNode(TreeView& tree, TreeNode& node, TreeNode& target, NodeRelation relation);

/// The end of an edit of the selected node's caption. False for an empty one, which is refused.
bool Tree1_AfterLabelEdit(MainForm& main, std::string_view caption);

/// Follows the selection: what the item panel holds is kept, then it shows the selected node.
void TreeNodeChanged(MainForm& main);
/// At a point in twips.
void Tree1_MouseDown(MainForm& main, double x, double y);
/// The Delete key (46) deletes the node.
void Tree1_KeyUp(MainForm& main, int code);

// The context menu.
void mnutreepop_Opening(MainForm& main);
/// A book without a topic behind the selected node, with a first page in it.
void popnewbook_Click(MainForm& main);
/// Asks for a node with children. The topic stays.
void pop1delete_Click(MainForm& main);

enum class NodeMove { kUp, kDown, kIn, kOut };
/// Moves the selected node with its subtree: before the node above, behind the one below, into
/// the one above as its last child, or behind its own book. False where it cannot go there.
bool MoveSelectedNode(MainForm& main, NodeMove direction);

/// Clears the references to nodes and rows when these go. Once, at start.
void KeepContentsReferences(MainForm& main);

}  // namespace quorrel
