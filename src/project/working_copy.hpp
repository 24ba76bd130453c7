// Working copies: an edited topic is kept beside its file until the project is saved.
#pragma once

#include <string>
#include <string_view>

namespace quorrel {

class FileSystem;
class ListRow;
struct MainForm;

inline constexpr std::string_view kWorkingCopy = ".tmp.htm";

[[nodiscard]] inline bool IsWorkingCopy(std::string_view path) {
    return path.find(kWorkingCopy) != std::string_view::npos;
}
/// The topic's path: `path` up to the first ending of a working copy.
[[nodiscard]] inline std::string TopicPath(std::string_view path) {
    return std::string(path.substr(0, path.find(kWorkingCopy)));
}
/// `path` itself if it is one already.
[[nodiscard]] inline std::string WorkingCopyOf(std::string_view path) {
    std::string copy(path);
    if (!IsWorkingCopy(path)) copy += kWorkingCopy;
    return copy;
}

/// Whether there is a working copy beside the topic that says anything that its file does not.
/// False where one of them cannot be read.
[[nodiscard]] bool SaysMoreThanTopic(MainForm& main, const std::string& topic);

/// Gives the file another name, with ".bak" at its end and a number where there is such a file
/// already. Gives the name; where it fails the file stays as it is.
std::string PutAside(FileSystem& files, const std::string& path);

/// Whether the flagged working copy of a topic's row says anything that its file does not.
[[nodiscard]] bool HasUnsavedCopy(MainForm& main, const ListRow& row);

/// Deletes the working copy of a topic that has no changes to be saved any longer, or none that
/// anybody wants, and its flag.
void ForgetWorkingCopy(MainForm& main, ListRow& row);

}  // namespace quorrel
