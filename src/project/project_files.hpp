// Which files belong to a project, for those who must not be shown any others.
#pragma once

#include <string>
#include <string_view>

namespace quorrel {

class FileSystem;
struct MainForm;

/// A full path with its "." and ".." taken away by the text alone, and with backslashes.
[[nodiscard]] std::string PlainPath(std::string_view path);

/// Whether the full path lies below the folder: as it is written, and if there is such a file, by
/// where it really is too. A path elsewhere is not looked for on the disk.
[[nodiscard]] bool LiesBelow(FileSystem& files, std::string_view path, std::string_view folder);

/// Whether the file lies in the folder of the project or of its templates, or is one that the
/// project names: a topic, a picture of the map, the target of a contents item, the open document.
[[nodiscard]] bool IsFileOfProject(MainForm& main, std::string_view path);

}  // namespace quorrel
