// UTF-8 and case folding over all of Unicode, for paths, names and identifiers.
#pragma once

#include <cstddef>
#include <functional>
#include <optional>
#include <string>
#include <string_view>

namespace quorrel {

[[nodiscard]] bool IsAscii(std::string_view text);
void AppendUtf8(std::string& text, char32_t c);

/// Decodes the code point at `offset` of well-formed UTF-8 and moves `offset` behind it. An
/// ill-formed byte is given as U+FFFD and one byte is passed over.
[[nodiscard]] char32_t NextCodePoint(std::string_view text, std::size_t& offset);

/// The length of the well-formed UTF-8 sequence at `offset`, or 0.
[[nodiscard]] std::size_t Utf8SequenceLength(std::string_view text, std::size_t offset);
[[nodiscard]] bool IsValidUtf8(std::string_view text);

/// Upper case, one code point for one.
[[nodiscard]] char32_t UpperCodePoint(char32_t c);
[[nodiscard]] std::string UpperUnicode(std::string_view text);

/// Compare by the code points of the upper-cased texts: below 0, 0 or above 0.
[[nodiscard]] int CompareIgnoringCase(std::string_view a, std::string_view b);
[[nodiscard]] bool EqualsIgnoringCase(std::string_view a, std::string_view b);
[[nodiscard]] std::size_t HashIgnoringCase(std::string_view text);

/// A place in a text, in bytes.
struct TextSpan {
    std::size_t offset = 0;
    std::size_t size = 0;
};

/// The first place of `part` in `text`, case ignored. An empty part is found at 0.
[[nodiscard]] std::optional<TextSpan> FindIgnoringCase(std::string_view text,
                                                       std::string_view part);

/// For hash tables with keys that are equal whatever their case.
struct IgnoringCaseHash {
    using is_transparent = void;
    std::size_t operator()(std::string_view text) const { return HashIgnoringCase(text); }
};
struct IgnoringCaseEqual {
    using is_transparent = void;
    bool operator()(std::string_view a, std::string_view b) const {
        return EqualsIgnoringCase(a, b);
    }
};

}  // namespace quorrel
