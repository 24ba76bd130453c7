// The contents file of JavaHelp, TOC.xml.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/tree_view.hpp"
#include "platform/failure.hpp"
#include "platform/left_behind.hpp"
#include "project/project_state.hpp"

namespace quorrel {

struct MainForm;

/// Appends the items of `text` to `tree`. A target is looked for among the topics, then among the
/// aliases, with its exact case; one that neither knows keeps its id without a location. Items
/// nested too deep are logged and not placed. As typed no escape is undone. Gives what of the file
/// could not be taken.
std::vector<LeftBehind> ReadTocXml(std::string_view text, const TopicTables& tables, TreeView& tree,
                                   const Trap& trap, XmlForm form = XmlForm::kAsTyped);

/// The text of the file. Of a node only the caption, the target and the image are kept: a location
/// without a target is lost, and a book without children becomes a page. As typed, targets and
/// images are written as they stand, and the reader undoes none of the escapes, so "&lt;" stays as
/// that in the caption, and is written as that again.
[[nodiscard]] std::string WriteTocXml(const TreeView& tree, XmlForm form = XmlForm::kAsTyped);

/// Fills Tree1 from hhcfile, if there is such a file.
void JavaReadTOC(MainForm& main);
/// Writes hhcfile if toc_dirty, which is cleared unless that fails.
void JavaWriteTOC(MainForm& main);

}  // namespace quorrel
