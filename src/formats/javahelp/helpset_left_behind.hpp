// What a save leaves out of a HelpSet that another program has written.
#pragma once

#include <string_view>
#include <vector>

#include "platform/left_behind.hpp"
#include "project/project_state.hpp"

namespace quorrel {

struct MainForm;

/// Compares the HelpSet `text` with the one that is written of `project`, which has been read from
/// it: presentations, sub-helpsets, further maps, views with a name, a label or a class of their
/// own, attributes, comments.
[[nodiscard]] std::vector<LeftBehind> LeftBehindInHelpSet(std::string_view text,
                                                          const ProjectState& project,
                                                          bool has_contents, bool has_keywords);

/// Notes files that a save makes under the names of the project and that the HelpSet does not name.
void NoteFilesNotInHelpSet(MainForm& main);

}  // namespace quorrel
