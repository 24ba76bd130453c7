// The views of the main window: what a change of tab does.
#pragma once

namespace quorrel {

struct MainForm;

/// Runs when another tab of TabStrip2 has been selected: hands the text over between the surface
/// and the source view and shows the panes of the tab.
void TabStrip2_Click(MainForm& main);

/// Lets the routines follow the events of the surface, the source view and the tabs. Once, at
/// start.
void ConnectEvents(MainForm& main);

}  // namespace quorrel
