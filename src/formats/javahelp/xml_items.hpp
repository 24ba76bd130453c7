// What the contents and the index file of JavaHelp share: items on lines of their own.
#pragma once

#include <string>
#include <string_view>

namespace quorrel {

/// By how much a line changes the level of the lines behind it: an opening item up, a closing
/// one and each line with "/>" down. `element` is the item's name in upper case.
[[nodiscard]] int LevelChange(std::string_view line, std::string_view element);

/// The "text" attribute of an item's line; without one what stands between the first ">" and the
/// next "<"; without that "Untitled".
[[nodiscard]] std::string ItemText(std::string_view line);

}  // namespace quorrel
