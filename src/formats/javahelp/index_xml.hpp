// The keyword index of JavaHelp, Index.xml.
#pragma once

#include <string_view>

#include "contents/contents_state.hpp"
#include "platform/failure.hpp"
#include "project/project_state.hpp"

namespace quorrel {

struct MainForm;

/// Appends the items of `text` to the keyword table, and their keywords to the topics that they
/// lead to. A line with the program's repeat mark adds its target to the row before.
void ReadIndexXml(std::string_view text, KeywordState& keywords, TopicTables& tables,
                  const Trap& trap);

/// Fills ListKeywords from hhkfile, if there is such a file.
void JavaReadIndex(MainForm& main);

}  // namespace quorrel
