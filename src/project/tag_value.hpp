// The one attribute reader and editor of the program.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quorrel {

/// TagValue(..., kRead) of an attribute that stands without a value.
inline constexpr std::string_view kAttributeOn = "<ON>";

enum class TagMode {
    kRead = 0,
    kWriteValue = 1,  // an empty value removes the attribute
    kWriteFlag = 2,   // "1" sets the flag, anything else removes it
};

/// Looks for `attribute` (in upper case) in `text` from `start`, a 1-based byte position, up to
/// the first ">" from there. The first place where the letters stand counts, also inside
/// another name or value.
///
/// Reading gives the value, kAttributeOn for one without "=", or an empty text. Writing gives
/// the whole text with the attribute changed; `value` carries its own quotes. Where there is no
/// ">", or `start` is outside the text, the result is empty.
[[nodiscard]] std::string TagValue(std::string_view text, std::size_t start,
                                   std::string_view attribute, std::string_view value,
                                   TagMode mode);

}  // namespace quorrel
