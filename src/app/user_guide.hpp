// The user guide: a help project like those of the authors, in the folder "Help" of the
// installation.
#pragma once

#include <string>
#include <string_view>

#include "platform/controls/tree_view.hpp"
#include "project/project_state.hpp"

namespace quorrel {

struct MainForm;

struct UserGuide {
    TreeView contents;
    TopicTables topics;

    /// The full path of the topic with the identifier; for one that the guide lacks, or for none,
    /// of the topic that it begins with. Empty for a guide without topics.
    [[nodiscard]] std::string PathOf(std::string_view identifier) const;
};

/// The folder of the guide's project.
[[nodiscard]] std::string GuideFolder(const MainForm& main);

/// Reads the guide with the readers of all projects; the log tells of files that it lacks.
void ReadUserGuide(MainForm& main, UserGuide& guide);

/// The identifier of the topic about a dialog, by the dialog's name.
[[nodiscard]] std::string HelpIdentifier(std::string_view form);

/// Shows the guide at the topic with the identifier; an empty one means its beginning.
void ShowHelp(MainForm& main, std::string_view identifier);
/// The command of the Help menu.
void helpcontents_Click(MainForm& main);

}  // namespace quorrel
