// Opening what a contents node points to.
#pragma once

namespace quorrel {

struct MainForm;

/// Loads the topic of the selected node. A remote address is only told. For a node without a
/// location and without children a new topic is offered.
void OpenTOCItem(MainForm& main);

/// A click on the selected node: a book shows whether it is open, then OpenTOCItem.
void Tree1_NodeClick(MainForm& main);

/// Selects the first node, in the order of addition, with a location of two characters or more
/// and opens it. In a JavaHelp project without a default topic the location becomes that.
/// Raises 35600 where no node has one.
void OpenFirstContentsItem(MainForm& main);

}  // namespace quorrel
