// Opening topics from the lists.
#pragma once

#include <string_view>

#include "platform/controls/list_view.hpp"

namespace quorrel {

struct MainForm;

/// Loads the topic at `location`, a full path or one below the project's folder, perhaps with "#"
/// and a bookmark. An address elsewhere is only told; an empty location opens nothing.
void OpenTopic(MainForm& main, std::string_view location);

/// Loads the topic of a row of the topic table.
void OpenTopicRow(MainForm& main, const ListRow& row);

/// Sorts the topic table by a column. The row number of the open topic moves with its row.
void SortTopics(MainForm& main, int column);

}  // namespace quorrel
