// Start and end of a run.
#pragma once

#include <string_view>

namespace quorrel {

struct MainForm;

/// True where the command line, its arguments joined by blanks, holds "html" in lower case.
[[nodiscard]] bool SelectsHtmlHelpEdition(std::string_view command_line);

/// The settings and the state of the window for a run, all but what shows something.
void LoadSettings(MainForm& main, std::string_view command_line);

/// The whole start: the splash, the settings, the window, FormStartup.
void Form_Load(MainForm& main, std::string_view command_line);

/// True if the window may close.
[[nodiscard]] bool Form_QueryUnload(MainForm& main);
/// Writes the recent list and the view option.
void Form_Unload(MainForm& main);

}  // namespace quorrel
