// The recent projects: their list, their menu, their keys in the settings file.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorrel {

struct MainForm;

/// The section of the running edition.
[[nodiscard]] std::string_view RecentSection(bool is_javahelp_edition);

struct RecentEntry {
    std::string path;
    std::string title;  // "Untitled" where the entry has none
};
[[nodiscard]] RecentEntry SplitRecentEntry(std::string_view entry);

/// The values of the keys "0" to "24" up to the first empty one whose files exist.
[[nodiscard]] std::vector<std::string> ReadRecentEntries(MainForm& main);

void LoadRecentList(MainForm& main);
/// Shows the first five in the File menu; a long path is shortened at a backslash.
void BuildRecentMenu(MainForm& main);
/// Puts the open project on top. A full list takes no new one.
void UpdateRecentList(MainForm& main);
/// Puts a project in front of the list that the settings file has for an edition which is not
/// the running one.
void PutFirstInRecentList(MainForm& main, bool of_javahelp_edition, const std::string& proj);
/// Writes the list and two empty keys behind it.
void WriteRecentList(MainForm& main);

}  // namespace quorrel
