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

/// Reads `proj` and the files that it names, and opens the first topic.
void ReadJavaHelpSet(MainForm& main);

}  // namespace quorrel
