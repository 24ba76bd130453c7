// The tags of a document's source by their places.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

namespace quorrel {

enum class HtmlTokenKind {
    kText,
    kStartTag,
    kEndTag,
    kInert,  // a comment, a declaration, or what stands in a script, a style sheet, a title
};

struct HtmlToken {
    HtmlTokenKind kind = HtmlTokenKind::kText;
    std::size_t begin = 0;  // bytes
    std::size_t end = 0;
    std::string name;  // of a tag, in upper case

    [[nodiscard]] bool IsTag() const {
        return kind == HtmlTokenKind::kStartTag || kind == HtmlTokenKind::kEndTag;
    }
    /// Where a tag's name stands.
    [[nodiscard]] std::size_t NameBegin() const {
        return begin + (kind == HtmlTokenKind::kEndTag ? 2 : 1);
    }
};

[[nodiscard]] constexpr bool IsHtmlBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n' || c == '\f';
}

/// Whether `word` is one of the blank-separated words of `list`.
[[nodiscard]] bool HasWord(std::string_view list, std::string_view word);

/// Cuts any text into tokens without gaps, in linear time. A "<" that opens nothing is text, and
/// so is all behind the last ">" from a tag on that is not closed.
[[nodiscard]] std::vector<HtmlToken> ScanHtml(std::string_view html);

}  // namespace quorrel
