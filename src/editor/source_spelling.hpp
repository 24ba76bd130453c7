// How an edited token is written into a source: with as much as possible of what stands there.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "editor/html_tokens.hpp"

namespace quorrel::html {

/// What an author's source looks like.
struct SourceStyle {
    std::string_view line_end = "\n";  // the one that prevails
    bool has_lines = false;            // it is more than one line
    bool has_upper_case_tags = false;  // for nearly all of them
};
[[nodiscard]] SourceStyle StyleOf(std::string_view source, const std::vector<HtmlToken>& tokens);

/// A text of the engine with the line end in place of each LF. A CR is none there, but stands for
/// a reference.
[[nodiscard]] std::string WithLineEnds(std::string_view text, std::string_view line_end);

/// A tag of the engine as the source would write it.
[[nodiscard]] std::string NewTag(std::string_view engine, const SourceStyle& style);

/// The tag of the source with the attributes that the engine's tag has. What did not change
/// stays as it is written.
[[nodiscard]] std::string PatchedTag(std::string_view source, std::string_view engine);

/// The word of the source with the characters that differ from the engine's word replaced.
[[nodiscard]] std::string PatchedWord(std::string_view source, std::string_view engine);

/// A new comment of the engine. One that stands for a declaration is written as that: an OBJECT
/// that is masked, "<!- begin expanding section ->".
[[nodiscard]] std::string NewComment(std::string_view engine);

}  // namespace quorrel::html
