// The encoding of a topic file, which keeps its own.
#pragma once

#include <string_view>

#include "platform/encoding.hpp"

namespace quorrel {

/// A byte-order mark, else the charset that the head declares, else UTF-8 where all of `bytes`
/// is valid as that beyond ASCII, else `code_page`.
[[nodiscard]] TextEncoding TopicEncoding(std::string_view bytes, int code_page);

}  // namespace quorrel
