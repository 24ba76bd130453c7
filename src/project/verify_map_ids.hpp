// Identifiers for topics that have none.
#pragma once

#include <string_view>

#include "platform/controls/list_view.hpp"

namespace quorrel {

/// Gives each row of `ListTopics` without an identifier one that is made of `Alias_Prefix` and
/// its file name. One that is taken gets the number of the row that has it behind it, until it
/// is free; the number is that of the collision and not a running one.
void verify_map_ids(ListView& ListTopics, std::string_view Alias_Prefix);

}  // namespace quorrel
