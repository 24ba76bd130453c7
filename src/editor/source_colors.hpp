// The colours of the HTML source: a tokenizer that takes the text line by line.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace quorrel {

/// Class codes of tokens. The three that have a colour of their own have fixed numbers.
enum class SourceToken : int {
    kText = 1,
    kTag = 2,  // "<p", "</p", ">", "/>"
    kAttributeName = 3,
    kAttributeValue = 4,
    kEntity = 5,       // "&amp;"
    kDeclaration = 6,  // "<!DOCTYPE ...>", "<!OBJECT ...>", "<?xml ...?>"
    kScript = 7,
    kStyle = 8,
    kServerScript = 9,     // "<% ... %>", "<?php ... ?>"
    kLineComment = 8193,   // a comment that ends in the line in which it begins
    kBlockComment = 24577  // a line of any other comment
};

/// A colour by its parts, 0 to 255, and the style of the letters.
struct TokenColor {
    int red = 0;
    int green = 0;
    int blue = 0;
    int style = 2;
};

/// The colour of a class code, on white: green for comments, black for text, blue for all others.
[[nodiscard]] TokenColor SourceTokenColor(int code);

/// A stretch of one line, in UTF-16 units.
struct SourceTokenSpan {
    std::size_t offset = 0;
    std::size_t size = 0;
    SourceToken token = SourceToken::kText;
};

/// What a line begins in.
struct SourceState {
    enum class Place : std::uint8_t {
        kText,
        kTag,
        kValue,  // of an attribute, behind its opening quote
        kComment,
        kDeclaration,
        kScript,
        kStyle
    };
    enum class Server : std::uint8_t { kNone, kPercent, kQuestion };
    enum class Content : std::uint8_t { kText, kScript, kStyle };

    Place place = Place::kText;
    Content content = Content::kText;  // what follows the open tag
    bool single_quote = false;         // of the open value
    bool value_next = false;           // the open tag stands behind "="
    Server server = Server::kNone;     // a server script that interrupts the place

    /// As one number from 0 on.
    [[nodiscard]] int Packed() const;
    [[nodiscard]] static SourceState Unpacked(int packed);
    bool operator==(const SourceState&) const = default;
};

/// Appends the tokens of a line without its line end, in their order. Text between them, and
/// blanks between attributes, have none. Gives the state in which the next line begins.
SourceState TokenizeSourceLine(std::u16string_view line, SourceState state,
                               std::vector<SourceTokenSpan>& tokens);

}  // namespace quorrel
