// What a save leaves out of a project file .hhp that another program has written.
#pragma once

#include <string_view>
#include <vector>

#include "platform/controls/list_view.hpp"
#include "platform/left_behind.hpp"
#include "project/project_state.hpp"

namespace quorrel {

struct MainForm;

/// Compares the project file `text` with what has been read of the project: entries of the list
/// that are no topics, aliases and numbers written in the file itself that no topic has, options
/// and comments that the writer drops. To be asked when all topics have their identifiers.
[[nodiscard]] std::vector<LeftBehind> LeftBehindInProject(std::string_view text,
                                                          const ProjectState& project,
                                                          const ListView& ListTopics);

/// Notes that for `proj`, and an .ali or header that a save replaces though the project does not
/// include it.
void NoteLeftBehindInProject(MainForm& main);

}  // namespace quorrel
