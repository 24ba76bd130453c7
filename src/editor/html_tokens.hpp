// A source taken apart as a browser's tokenizer does it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorrel::html {

/// The name of a tag as a number, so that names can be told apart by a switch.
using TagName = std::uint32_t;

/// `lower` is in lower case.
constexpr TagName Tag(std::string_view lower) {
    TagName name = 2166136261U;
    for (const char c : lower) name = (name ^ static_cast<unsigned char>(c)) * 16777619U;
    return name;
}

constexpr bool IsOneOf(TagName name, std::initializer_list<TagName> names) {
    for (const TagName other : names) {
        if (name == other) return true;
    }
    return false;
}

constexpr bool IsHtmlBlank(char c) {
    return c == ' ' || c == '\n' || c == '\r' || c == '\t' || c == '\f';
}

enum class TokenKind : std::uint8_t {
    kBlank,    // a run of white space
    kWord,     // text without white space
    kRaw,      // all of what stands in a script, a style sheet and the like
    kStart,    // <p ...>
    kEnd,      // </p>
    kComment,  // also "<!x>", "<?x>" and "</ x>", which a browser takes for comments
    kDoctype,
    kNothing  // what a browser passes over: "</>", a tag that does not end
};

/// The tokens of a text follow each other without a gap.
struct HtmlToken {
    TokenKind kind = TokenKind::kNothing;
    bool is_self_closing = false;
    TagName name = 0;  // of a tag
    std::uint32_t begin = 0;
    std::uint32_t end = 0;
    // Equal for tokens that mean the same, however they are written.
    std::uint64_t hash = 0;
};

[[nodiscard]] std::vector<HtmlToken> HtmlTokens(std::string_view text);

/// The hash of a tag without attributes.
[[nodiscard]] std::uint64_t HashOfStartTag(TagName name);
[[nodiscard]] std::uint64_t HashOfEndTag(TagName name);
/// The hash of a word that stands in several pieces of source.
[[nodiscard]] std::uint64_t HashOfText(std::string_view text, TokenKind kind);
/// The text of a word without references. The text of a blank with its line ends as LF.
[[nodiscard]] std::string WithoutReferences(std::string_view text);

/// An attribute of a tag, with its place in the tag's source.
struct HtmlAttribute {
    std::string name;   // in lower case
    std::string value;  // decoded
    std::size_t begin = 0;
    std::size_t value_begin = 0;  // behind the quote; 0 without "="
    std::size_t value_end = 0;
    std::size_t end = 0;  // behind the quote
    char quote = 0;
};
/// In the order of the source, doubles included, of which a browser takes the first.
[[nodiscard]] std::vector<HtmlAttribute> AttributesOf(std::string_view tag);
[[nodiscard]] std::uint64_t HashOfAttribute(const HtmlAttribute& attribute);

/// What a comment holds, whichever way it is written.
[[nodiscard]] std::string_view CommentData(std::string_view comment);

/// The parts of "<!DOCTYPE name PUBLIC "public" "system">".
struct Doctype {
    std::string name;  // in lower case
    std::optional<std::string> public_id;
    std::optional<std::string> system_id;
};
[[nodiscard]] Doctype ParseDoctype(std::string_view text);

[[nodiscard]] bool IsVoidElement(TagName name);
/// An element whose content is no markup.
[[nodiscard]] bool IsRawElement(TagName name);
/// An element in which white space counts.
[[nodiscard]] bool KeepsBlanks(TagName name);
/// A start tag behind which a browser passes over a line feed.
[[nodiscard]] bool PassesOverLineFeed(const HtmlToken& tag);
/// A tag beside which white space does not count.
[[nodiscard]] bool IsBlockTag(TagName name);
/// A tag that only dresses the text in it.
[[nodiscard]] bool IsInlineTag(TagName name);

}  // namespace quorrel::html
