// The contents file of JavaHelp, TOC.xml.
#pragma once

#include <string_view>

#include "platform/controls/tree_view.hpp"
#include "platform/failure.hpp"
#include "project/project_state.hpp"

namespace quorrel {

struct MainForm;

/// Appends the items of `text` to `tree`. A target is looked for among the topics, then among the
/// aliases, with its exact case; one that neither knows keeps its id without a location. Items
/// nested too deep are logged and not placed. No escape is undone.
void ReadTocXml(std::string_view text, const TopicTables& tables, TreeView& tree, const Trap& trap);

/// Fills Tree1 from hhcfile, if there is such a file.
void JavaReadTOC(MainForm& main);

}  // namespace quorrel
