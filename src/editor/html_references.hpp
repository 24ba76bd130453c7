// Character references as a browser decodes them.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

namespace quorrel::html {

/// Where a reference stands: in an attribute one without its ";" is none before "=", a letter or
/// a digit, so that "?a=1&copy=2" stays a URL.
enum class ReferencePlace { kText, kAttribute };

/// The length of the reference at `offset`, where an "&" stands, and its characters added to
/// `decoded`. 0 where there is none: the "&" stands for itself. The names are those of HTML 4.
[[nodiscard]] std::size_t DecodeReference(std::string_view text, std::size_t offset,
                                          ReferencePlace place, std::string& decoded);

}  // namespace quorrel::html
