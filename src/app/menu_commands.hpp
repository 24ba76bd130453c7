// The menus of the main window: what their entries do, and how these stand when a menu opens.
#pragma once

#include <string_view>

namespace quorrel {

struct MainForm;

// Run when the menu opens.
void file_Click(MainForm& main);
void edit_Click(MainForm& main);
void insert_Click(MainForm& main);
void FormatMain_Click(MainForm& main);
void Format_Click(MainForm& main);
void table_Click(MainForm& main);
void D2D_Click(MainForm& main);

/// Opens an HTML file that the user chooses; it does not become a topic of the project.
void fileopen_Click(MainForm& main);
void FileSaveAs_Click(MainForm& main);
void fileexit_Click(MainForm& main);

/// Entries of the Edit menu, 0 to 11. They act on the surface, or on the source view on its tab.
void EditSub_Click(MainForm& main, int index);
/// Entries of the View menu: 0 borders, 1 details, 2 the surface's own form of the source.
void Viewsub_Click(MainForm& main, int index);

/// Opens the page of the running edition under the address that this program was built with.
void checkforupdates_Click(MainForm& main);
/// The same with another address; an empty one is told.
void CheckForUpdates(MainForm& main, std::string_view address);
void AboutQuorrelEdit_Click(MainForm& main);

/// Goes to the preview; from there it shows the topic anew.
void preview_kb_Click(MainForm& main);

// Context menus of the lists.
void popproperties_Click(MainForm& main);
void expandpane_Click(MainForm& main);

}  // namespace quorrel
