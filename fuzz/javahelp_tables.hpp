// The topic and the place in it that the seeds of the JavaHelp formats name.
#pragma once

#include <string_view>

#include "project/project_state.hpp"

namespace quorrel::fuzz {

inline constexpr std::string_view kHelpSet = "C:\\p\\g.hs";
inline constexpr std::string_view kHelpSetFolder = "C:\\p";

inline void FillJavaHelpTables(TopicTables& tables) {
    ListRow& topic = tables.ListTopics.Add("a");
    topic.SetSubItem(topic_cell::kMapId, "a");
    topic.SetSubItem(topic_cell::kFullPath, "C:\\p\\a.htm");
    tables.ListAliases.Add("b").SetSubItem(alias_cell::kPath, "C:\\p\\a.htm#b");
}

}  // namespace quorrel::fuzz
