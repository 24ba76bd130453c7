// Identifiers for topics that have none, or that of another one.
#pragma once

#include <string>
#include <string_view>

#include "platform/controls/list_view.hpp"

namespace quorrel {

struct TopicTables;

/// `candidate` if neither a topic nor an alias has it. One that is taken gets the number of the row
/// that has it behind it, until it is free; the number is that of the collision and not a running
/// one.
[[nodiscard]] std::string FreeMapId(const TopicTables& topics, std::string candidate);
/// A free identifier for the topic with this path, made of `Alias_Prefix` and the file name.
[[nodiscard]] std::string MapIdFor(const TopicTables& topics, std::string_view path,
                                   std::string_view Alias_Prefix);

/// Gives each topic without an identifier the one that MapIdFor makes.
void verify_map_ids(TopicTables& topics, std::string_view Alias_Prefix);

/// Gives each topic a free identifier that has, letter by letter, that of a topic before it in the
/// table. Gives how many there were.
int SeparateMapIds(TopicTables& topics);

}  // namespace quorrel
