// Running the commands of the tables and asking how they stand.
#pragma once

#include <string>
#include <string_view>

#include "app/window_controls.hpp"

namespace quorrel {

struct MainForm;
struct Menu;

/// The model of an entry, a menu or a button: its caption, tool tip, check mark, whether it is
/// shown and enabled.
[[nodiscard]] MenuEntry& EntryOf(WindowControls& window, std::string_view name);

/// Gives all models their designed captions and tool tips, and the check marks of what the
/// surface shows. Once, at start.
void PrepareCommands(MainForm& main);

/// Enables or disables a menu, an entry or a button. What this version does not have stays
/// disabled.
void SetEnabled(MainForm& main, std::string_view name, bool on);

/// To be run before a menu is shown: its entries take their states.
void OpenMenu(MainForm& main, const Menu& menu);
/// To be run when it has gone: the entries are enabled again. What they could do when the menu
/// was opened must not bar their keys later on.
void CloseMenu(MainForm& main, const Menu& menu);

/// Runs the command of an entry, chosen in its menu or by its key, if it can be run now: its menu
/// is enabled, and the entry is when its menu opens. False where it cannot.
bool RunCommand(MainForm& main, std::string_view name);

/// Why an entry, a menu or a button cannot be used now, as a sentence for the user.
[[nodiscard]] std::string WhyNot(MainForm& main, std::string_view name);

}  // namespace quorrel
