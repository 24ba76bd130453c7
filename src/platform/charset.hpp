// The encoding names of HTML and XML.
#pragma once

#include <string_view>

namespace quorrel {

/// The Windows number of the code page with this name ("utf-8", "shift_jis", ...), by which the
/// Latin names mean their Windows relatives as in browsers; 0 for an unknown name.
[[nodiscard]] int CodePageOfCharset(std::string_view name);

}  // namespace quorrel
