// Files of the program's own about one project: they lie beside the settings, not in the project,
// so that no author finds them among his files and a project on a read-only disk can have them.
#pragma once

#include <string>
#include <string_view>

namespace quorrel {

struct MainForm;

/// The folder of these files for the project file at `proj`, whatever its path is spelled like:
/// case and steps such as ".." make no difference. It need not exist yet.
[[nodiscard]] std::string PrivateFolder(const MainForm& main, std::string_view proj);

/// The path of the file `name` in that folder.
[[nodiscard]] std::string PrivateFile(const MainForm& main, std::string_view proj,
                                      std::string_view name);

/// Writes the file whole, making its folder where there is none. Raises as
/// FileSystem::WriteFile.
void WritePrivateFile(const MainForm& main, std::string_view proj, std::string_view name,
                      std::string_view bytes);

}  // namespace quorrel
