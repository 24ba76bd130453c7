// The panel that shows and edits one item of the contents.
#pragma once

namespace quorrel {

struct MainForm;

/// Fills the panel from the selected node. Without a selection nothing happens.
void LoadTOCProperties(MainForm& main);
/// Packs the panel's fields into the Tag of the node that it was filled from. In a JavaHelp
/// project a location with a bookmark gets a map id where it has none.
void SaveTOCProperties(MainForm& main);
/// SaveTOCProperties if there is something to save.
void CommitContentsItem(MainForm& main);

/// The new caption goes to the selected node at once.
void EditTOCText_Change(MainForm& main);
void EditTOCLocation_Change(MainForm& main);
/// Ticked: the selected node gets a first child. Cleared: its children move up behind it.
void CheckTOCIsBook_Click(MainForm& main);

/// Lets these routines follow the fields of the panel. Once, at start.
void ConnectContentsItemPanel(MainForm& main);

}  // namespace quorrel
