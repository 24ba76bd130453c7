// Opening a project.
#pragma once

#include <string_view>

namespace quorrel {

struct MainForm;

/// Opens the project in `recent_proj`, which is cleared, or one that the user chooses. Sets
/// `proj_success` as soon as there is one. What cannot be read is logged, and the project is
/// there as far as it could be read.
void OpenProject_Click(MainForm& main);

/// Opens an entry of the recent menu, 0 to 4. A file that is gone is told, and the entry stays.
void recent_Click(MainForm& main, int index);

/// Opens the project at `path`, or tells that there is no such file and gives false.
bool OpenRecentProject(MainForm& main, std::string_view path);

/// Empties the tables, the trees and the surface for another project.
void ClearProject(MainForm& main);

/// Shows the tool button of what is made of the project: a compiled file or an archive.
void ShowBuildButtons(MainForm& main);

/// The caption of the main window: the program's name, and the project's title if one is open.
void UpdateCaption(MainForm& main);

/// True for the path of a JavaHelp project: its file ends in ".hs", in any case of letters.
[[nodiscard]] bool IsJavaHelpProject(std::string_view proj);

}  // namespace quorrel
