// Text helpers on UTF-8 strings that look at ASCII only and keep every byte position.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace quorrel {

inline constexpr std::size_t npos = std::string_view::npos;
inline constexpr std::string_view kLineEnd = "\r\n";

constexpr char UpperAscii(char c) {
    return c >= 'a' && c <= 'z' ? static_cast<char>(c - 32) : c;
}
constexpr char LowerAscii(char c) {
    return c >= 'A' && c <= 'Z' ? static_cast<char>(c + 32) : c;
}

[[nodiscard]] std::string UpperAscii(std::string_view text);
[[nodiscard]] std::string LowerAscii(std::string_view text);

/// The byte offset of `upper` in `text` from offset `from` on, ASCII case ignored, or npos.
/// `upper` is given in upper case. An empty `upper` is found at `from` itself.
[[nodiscard]] std::size_t FindIgnoringAsciiCase(std::string_view text, std::string_view upper,
                                                std::size_t from = 0);
[[nodiscard]] bool ContainsIgnoringAsciiCase(std::string_view text, std::string_view upper);
[[nodiscard]] inline bool Contains(std::string_view text, std::string_view part) {
    return text.find(part) != npos;
}

/// The line feeds in `text`.
[[nodiscard]] std::size_t CountLines(std::string_view text);

[[nodiscard]] std::string ReplaceAll(std::string_view text, std::string_view from,
                                     std::string_view to);

/// Only the blank (0x20) is trimmed; tabs and other white space stay.
[[nodiscard]] std::string_view TrimLeft(std::string_view text);
[[nodiscard]] std::string_view TrimRight(std::string_view text);
[[nodiscard]] std::string_view Trim(std::string_view text);
/// As Trim, for blanks and tabs.
[[nodiscard]] std::string_view TrimBlanksAndTabs(std::string_view text);

/// What stands before the last `mark`, or `otherwise` when there is none.
[[nodiscard]] std::string_view BeforeLast(std::string_view text, char mark,
                                          std::string_view otherwise);
/// What stands behind the last `mark`, or all of `text` when there is none.
[[nodiscard]] std::string_view AfterLast(std::string_view text, char mark);

/// The number of code points; a byte that continues a sequence is not counted.
[[nodiscard]] std::size_t CountCharacters(std::string_view text);
/// The byte offset of the code point with the 0-based number `characters`, or the size.
[[nodiscard]] std::size_t OffsetOfCharacter(std::string_view text, std::size_t characters);
/// The first `characters` code points.
[[nodiscard]] std::string_view FirstCharacters(std::string_view text, std::size_t characters);

/// Turns each character that is neither an ASCII letter nor a digit into one "_".
[[nodiscard]] std::string ToIdentifier(std::string_view name);

/// The number at the start of `text`, behind blanks and a sign; 0 where there is none. Values
/// beyond 64 bits stay at the limit.
[[nodiscard]] std::int64_t LeadingNumber(std::string_view text);

}  // namespace quorrel
