// The keywords of the open topic on the properties page, and the keyword table's own commands.
// What is done to ListKeys reaches the topic and the table when the properties are saved.
#pragma once

namespace quorrel {

struct MainForm;

/// Adds what is typed to ListKeys, or puts it in place of the line that is being edited.
void Command1_Click(MainForm& main);
/// Takes the selected line into the fields.
void CommandEdit_Click(MainForm& main);
void CommandDelete_Click(MainForm& main);
/// Adds the selected row of ListKeywords to ListKeys.
void CommandAddFromIndex_Click(MainForm& main);
void EditKeyword_Change(MainForm& main);
void ListKeys_DblClick(MainForm& main);

/// A row of ListKeywords is dragged over ListKeys. Gives the effect that a drop would have.
[[nodiscard]] int ListKeys_OLEDragOver(const MainForm& main);
void ListKeys_OLEDragDrop(MainForm& main);

/// A drag of the selected row of ListKeywords begins. Gives the effect that it may have.
int ListKeywords_OLEStartDrag(MainForm& main);
void ListKeywords_OLECompleteDrag(MainForm& main);
/// The Delete key (46) deletes the selected row, after a question.
void ListKeywords_KeyUp(MainForm& main, int code);

/// Deletes the selected row of ListKeywords, unless it has sub-keys. The topics keep the key, and
/// the index is not marked to be written: table and topics differ until their properties are
/// saved.
void popidelete_Click(MainForm& main);

/// Lets these routines follow the fields of the page. Once, at start.
void ConnectTopicKeywords(MainForm& main);

}  // namespace quorrel
