// The files that a page is put together from.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorrel {

/// What the source of a page loads by itself: pictures, style sheets, scripts, sounds. As written
/// there, without character references. Links are not among them.
[[nodiscard]] std::vector<std::string> PartsOfPage(std::string_view html);

/// The same of a style sheet.
[[nodiscard]] std::vector<std::string> PartsOfStyleSheet(std::string_view css);

}  // namespace quorrel
