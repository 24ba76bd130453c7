// Opening what a contents node points to.
#pragma once

#include "platform/controls/tree_view.hpp"

namespace quorrel {

struct MainForm;

/// Loads the topic of the selected node. A remote address is only told. For a node without a
/// location and without children a new topic is offered.
void OpenTOCItem(MainForm& main);

/// A click on the selected node: a book shows whether it is open, then OpenTOCItem.
void Tree1_NodeClick(MainForm& main);

/// The first node, in the order of addition, with a location of two characters or more. Raises
/// 35600 where no node has one.
[[nodiscard]] TreeNode& FirstNodeWithLocation(TreeView& tree);

/// Selects and opens the first node with a location; raises as FirstNodeWithLocation.
void OpenFirstContentsItem(MainForm& main);

}  // namespace quorrel
