// The encoding of a topic file, which keeps its own.
#pragma once

#include <string_view>

#include "platform/encoding.hpp"

namespace quorrel {

/// The Windows number of the code page with this HTML name ("utf-8", "shift_jis", ...), by which
/// the Latin names mean their Windows relatives as in browsers; 0 for an unknown name.
[[nodiscard]] int CodePageOfCharset(std::string_view name);

/// A byte-order mark, else the charset that the head declares, else UTF-8 where all of `bytes`
/// is valid as that beyond ASCII, else `code_page`.
[[nodiscard]] TextEncoding TopicEncoding(std::string_view bytes, int code_page);

}  // namespace quorrel
