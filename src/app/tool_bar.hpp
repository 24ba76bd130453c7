// The tool bars: what their buttons do and when they can be used.
#pragma once

#include <string_view>

namespace quorrel {

struct MainForm;

/// Runs the command of a button of tbToolBar. A key without a command does nothing.
void tbToolBar_ButtonClick(MainForm& main, std::string_view key);
/// The same for Toolbar1, the bar for formatting.
void Toolbar1_ButtonClick(MainForm& main, std::string_view key);

/// Sets what can be used on the selected tab of TabStrip2.
void UpdateToolbars(MainForm& main);
/// Every button of both bars and the lists for font, size and style; pending events run then.
void DisableEditCommands(MainForm& main);
void EnableEditCommands(MainForm& main);

// These act on the surface on the tab "Normal" and on the source view on any other.
void Print_Click(MainForm& main);
void Cut_Click(MainForm& main);
void Copy_Click(MainForm& main);
void Paste_Click(MainForm& main);
void Find_Click(MainForm& main);

void GoBack_Click(MainForm& main);
void StopBrowser(MainForm& main);
void DoNothing(MainForm& main);
/// Shows or hides the details of the document on the surface.
void showhide_Click(MainForm& main);

}  // namespace quorrel
