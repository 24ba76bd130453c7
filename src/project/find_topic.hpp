// Look-ups in the topic table.
#pragma once

#include <string_view>

#include "platform/controls/list_view.hpp"

namespace quorrel {

/// The 1-based row whose full path equals `path` without regard to case; -1 for none.
[[nodiscard]] int FindTopic(const ListView& ListTopics, std::string_view path);
/// The same with the identifier.
[[nodiscard]] int FindAlias(const ListView& ListTopics, std::string_view alias);

}  // namespace quorrel
