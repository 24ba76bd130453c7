// The views of the main window: what a change of tab does.
#pragma once

namespace quorrel {

struct MainForm;

/// Runs when another tab of TabStrip1 has been selected while the strip is enabled: shows the
/// list of the tab.
void TabStrip1_Click(MainForm& main);

/// Runs when another tab of TabStrip2 has been selected: hands the text over between the surface
/// and the source view and shows the panes of the tab.
void TabStrip2_Click(MainForm& main);

/// Where Tree1 stands and what goes with it, by the selected tab of TabStrip2: on the right side
/// with the strip of the left side locked, or in its place with the strip free.
void ArrangeContentsView(MainForm& main);
/// The same for TreeDoc, on the tab "Document Wizard" only.
void ArrangeOutlineView(MainForm& main);

/// Shows what belongs to the first tabs, without a change of tab. At start.
void ShowFirstTabs(MainForm& main);

/// Lets the routines follow the events of the surface, the source view and the tabs. Once, at
/// start.
void ConnectEvents(MainForm& main);

}  // namespace quorrel
