// Private-profile text: sections in brackets with lines "key=value", by the rules of the
// Windows functions GetPrivateProfileString and WritePrivateProfileString.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/unicode.hpp"

namespace quorrel {

/// The value of the first `key` in the first section `section`, both compared without case and
/// the key without the blanks round it. Blanks and tabs at both ends and one pair of quotes come
/// off the value. Nothing where there is no such line; a found value may be empty.
[[nodiscard]] std::optional<std::string> ProfileValue(std::string_view text,
                                                      std::string_view section,
                                                      std::string_view key);

/// The key of each line of the first section `section`, with its value as ProfileValue gives it,
/// for a reader that asks for many keys: the cost is that of one look.
using ProfileKeys =
    std::unordered_map<std::string, std::string, IgnoringCaseHash, IgnoringCaseEqual>;
[[nodiscard]] ProfileKeys ProfileSection(std::string_view text, std::string_view section);

/// `text` with the key set. An existing key keeps its place and spelling; a new one goes to the
/// end of its section, a new section to the end of the file. All other lines stay as they are,
/// and new ones take the line end of the file's first line (CR LF in an empty text). Leading
/// blanks of `value` are dropped, and a line end in it becomes a blank.
[[nodiscard]] std::string SetProfileValue(std::string_view text, std::string_view section,
                                          std::string_view key, std::string_view value);

}  // namespace quorrel
