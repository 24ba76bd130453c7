// What a browser makes of a source: the tokens of its serialised document, and where in the
// source each of them comes from.
#pragma once

#include <cstdint>
#include <optional>
#include <string_view>
#include <vector>

#include "editor/html_tokens.hpp"

namespace quorrel::html {

/// A token of a serialised document.
struct DocumentToken {
    TokenKind kind = TokenKind::kNothing;
    TagName name = 0;
    std::uint64_t hash = 0;
    // The first and the last token of the source that it is; -1 for what the browser added.
    // Text that a browser joins may come from several.
    std::int32_t first = -1;
    std::int32_t last = -1;
};

/// Parses by the rules of HTML, with scripts off. Nothing for a document that is no good to read
/// closely: one that the rules would blow up.
[[nodiscard]] std::optional<std::vector<DocumentToken>> ParseDocument(
    std::string_view text, const std::vector<HtmlToken>& tokens);

}  // namespace quorrel::html
