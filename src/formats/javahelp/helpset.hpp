// The project file of JavaHelp, the HelpSet .hs.
#pragma once

#include <string>
#include <string_view>

#include "project/project_state.hpp"

namespace quorrel {

struct MainForm;

/// Takes the title, the home topic, the map, the contents and the index file and whether there
/// is a search view from `text`. What the HelpSet does not say stays as it is in `project`.
void ReadHelpSet(std::string_view text, ProjectState& project);

/// The text of the file, all of it: what a HelpSet read from elsewhere had beside is not kept.
/// There is a view for each of contents and index that has entries, and for the search if
/// javahelp_do_fts. As typed nothing is escaped.
[[nodiscard]] std::string WriteHelpSet(const ProjectState& project, bool has_contents,
                                       bool has_keywords);

/// Reads `proj` and the files that it names, and opens the first topic.
void ReadJavaHelpSet(MainForm& main);
/// Writes `proj`, changed or not. It goes last: the other writers name files that have no name yet.
void JavaWriteHelpSetFile(MainForm& main);

}  // namespace quorrel
