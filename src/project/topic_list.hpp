// What the user does with the rows of the topic table.
#pragma once

namespace quorrel {

struct MainForm;

/// Runs when the context menu of the list opens.
void mnulistpop_Opening(MainForm& main);

void poplstopen_Click(MainForm& main);
/// Opens the topic on its properties page.
void poplstproperties_Click(MainForm& main);
/// Takes the selected topic out of the project; its file stays.
void poplstremove_Click(MainForm& main);
/// The same, and the file is deleted.
void poplstdelete_Click(MainForm& main);
/// Switches the copying of context numbers on and off.
void popcopyinteger_Click(MainForm& main);

/// A click on a row, which is selected then.
void ListTopics_Click(MainForm& main);
/// The selected row is being dragged: tree_drag_text has the link that it leaves in a topic.
void ListTopics_DragStart(MainForm& main);
/// To be run however the drag ended.
void ListTopics_DragEnd(MainForm& main);

}  // namespace quorrel
