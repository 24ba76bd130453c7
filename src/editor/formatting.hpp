// Commands of the surface, as buttons, lists and menu entries give them. What the surface refuses
// is not done, and nothing is said.
#pragma once

#include "platform/surface_commands.hpp"

namespace quorrel {

struct MainForm;

/// Whether the surface is what the author works on, and can do the command now.
[[nodiscard]] bool SurfaceCan(MainForm& main, int command);
/// Gives the command without a question to the user unless `option` says so.
void RunOnSurface(MainForm& main, int command,
                  CommandOption option = CommandOption::kDontPromptUser,
                  const CommandValue& value = {});

/// A command of kFormatButtons. For a color the surface asks the user.
void RunFormatCommand(MainForm& main, int command);
/// The surface's own dialog for fonts.
void Font_Click(MainForm& main);
/// Centers the paragraph; the command of a key.
void center_kb_Click(MainForm& main);

/// The block format with the name that the entry of the menu has.
void FormatSub_Click(MainForm& main, int index);
// The lists of the tool bar. To be run when the user has chosen, not when a list follows the
// selection.
void ComboStyle_Click(MainForm& main);
void FontCombo_Click(MainForm& main);
void FontSizeCombo_Click(MainForm& main);

/// The command of kTableCommands.
void tablesub_Click(MainForm& main, int index);
/// The command of kPositionCommands.
void D2DSub_Click(MainForm& main, int index);

/// Pastes a button at the selection.
void InsertButton_Click(MainForm& main);

}  // namespace quorrel
