#include "platform/unicode.hpp"

#include <algorithm>
#include <cstdint>
#include <cstring>

#include "platform/text.hpp"

namespace quorrel {

bool IsAscii(std::string_view text) {
    std::size_t i = 0;
    for (; i + 8 <= text.size(); i += 8) {
        std::uint64_t word = 0;
        std::memcpy(&word, text.data() + i, 8);
        if ((word & 0x8080808080808080ULL) != 0) return false;
    }
    for (; i < text.size(); ++i) {
        if ((static_cast<unsigned char>(text[i]) & 0x80) != 0) return false;
    }
    return true;
}

void AppendUtf8(std::string& text, char32_t c) {
    const auto put = [&](char32_t value) { text += static_cast<char>(value); };
    if (c < 0x80) {
        put(c);
    } else if (c < 0x800) {
        put(0xC0 | (c >> 6));
        put(0x80 | (c & 0x3F));
    } else if (c < 0x10000) {
        put(0xE0 | (c >> 12));
        put(0x80 | ((c >> 6) & 0x3F));
        put(0x80 | (c & 0x3F));
    } else {
        put(0xF0 | (c >> 18));
        put(0x80 | ((c >> 12) & 0x3F));
        put(0x80 | ((c >> 6) & 0x3F));
        put(0x80 | (c & 0x3F));
    }
}

std::size_t Utf8SequenceLength(std::string_view text, std::size_t offset) {
    const auto byte = [&](std::size_t i) { return static_cast<unsigned char>(text[offset + i]); };
    const unsigned char lead = byte(0);
    if (lead < 0x80) return 1;
    const std::size_t length = lead >= 0xC2 && lead <= 0xDF   ? 2
                               : lead >= 0xE0 && lead <= 0xEF ? 3
                               : lead >= 0xF0 && lead <= 0xF4 ? 4
                                                              : 0;
    if (length == 0 || text.size() - offset < length) return 0;
    for (std::size_t i = 1; i < length; ++i) {
        if ((byte(i) & 0xC0) != 0x80) return 0;
    }
    // Overlong forms, surrogates and values above U+10FFFF are not well-formed.
    if (lead == 0xE0 && byte(1) < 0xA0) return 0;
    if (lead == 0xED && byte(1) > 0x9F) return 0;
    if (lead == 0xF0 && byte(1) < 0x90) return 0;
    if (lead == 0xF4 && byte(1) > 0x8F) return 0;
    return length;
}

bool IsValidUtf8(std::string_view text) {
    for (std::size_t i = 0; i < text.size();) {
        const std::size_t length = Utf8SequenceLength(text, i);
        if (length == 0) return false;
        i += length;
    }
    return true;
}

char32_t NextCodePoint(std::string_view text, std::size_t& offset) {
    const std::size_t length = Utf8SequenceLength(text, offset);
    const auto byte = [&](std::size_t i) {
        return static_cast<char32_t>(static_cast<unsigned char>(text[offset + i]));
    };
    char32_t c = 0xFFFD;
    switch (length) {
        case 1:
            c = byte(0);
            break;
        case 2:
            c = (byte(0) & 0x1F) << 6 | (byte(1) & 0x3F);
            break;
        case 3:
            c = (byte(0) & 0x0F) << 12 | (byte(1) & 0x3F) << 6 | (byte(2) & 0x3F);
            break;
        case 4:
            c = (byte(0) & 0x07) << 18 | (byte(1) & 0x3F) << 12 | (byte(2) & 0x3F) << 6 |
                (byte(3) & 0x3F);
            break;
        default:
            break;
    }
    offset += length == 0 ? 1 : length;
    return c;
}

std::string UpperUnicode(std::string_view text) {
    if (IsAscii(text)) return UpperAscii(text);
    std::string result;
    result.reserve(text.size());
    for (std::size_t i = 0; i < text.size();)
        AppendUtf8(result, UpperCodePoint(NextCodePoint(text, i)));
    return result;
}

namespace {

/// The upper-cased code point at `offset`, which moves behind it.
char32_t NextUpper(std::string_view text, std::size_t& offset) {
    const auto c = static_cast<unsigned char>(text[offset]);
    if (c < 0x80) {
        ++offset;
        return static_cast<unsigned char>(UpperAscii(static_cast<char>(c)));
    }
    return UpperCodePoint(NextCodePoint(text, offset));
}

}  // namespace

int CompareIgnoringCase(std::string_view a, std::string_view b) {
    // Most names and paths differ behind a long stretch of equal ASCII.
    const std::size_t shorter = std::min(a.size(), b.size());
    std::size_t i = 0;
    while (i < shorter && a[i] == b[i] && (static_cast<unsigned char>(a[i]) & 0x80) == 0) ++i;
    std::size_t j = i;
    while (i < a.size() && j < b.size()) {
        const char32_t x = NextUpper(a, i);
        const char32_t y = NextUpper(b, j);
        if (x != y) return x < y ? -1 : 1;
    }
    if (i < a.size()) return 1;
    return j < b.size() ? -1 : 0;
}

bool EqualsIgnoringCase(std::string_view a, std::string_view b) {
    if (a == b) return true;
    return CompareIgnoringCase(a, b) == 0;
}

namespace {

/// Eight ASCII characters at once.
std::uint64_t UpperAscii(std::uint64_t word) {
    constexpr std::uint64_t kEach = 0x0101010101010101ULL;
    // The top bit of each byte that is at least "a", and of each above "z".
    const std::uint64_t from_a = word + kEach * (0x80 - 'a');
    const std::uint64_t above_z = word + kEach * (0x80 - 'z' - 1);
    return word - (((from_a & ~above_z) & (kEach * 0x80)) >> 2);
}

std::uint64_t Mixed(std::uint64_t hash, std::uint64_t word) {
    hash = (hash ^ word) * 0x9E3779B97F4A7C15ULL;
    return hash ^ (hash >> 29);
}

}  // namespace

std::size_t HashIgnoringCase(std::string_view text) {
    // What is not ASCII may change its length with its case, and even become ASCII.
    std::string upper;
    if (!IsAscii(text)) text = upper = UpperUnicode(text);
    std::uint64_t hash = text.size();
    std::size_t i = 0;
    for (; i + 8 <= text.size(); i += 8) {
        std::uint64_t word = 0;
        std::memcpy(&word, text.data() + i, 8);
        hash = Mixed(hash, UpperAscii(word));
    }
    std::uint64_t rest = 0;
    std::memcpy(&rest, text.data() + i, text.size() - i);
    return static_cast<std::size_t>(Mixed(hash, UpperAscii(rest)));
}

std::optional<TextSpan> FindIgnoringCase(std::string_view text, std::string_view part) {
    if (IsAscii(text) && IsAscii(part)) {
        const std::size_t at = FindIgnoringAsciiCase(text, UpperAscii(part));
        if (at == npos) return std::nullopt;
        return TextSpan{at, part.size()};
    }
    for (std::size_t start = 0;;) {
        std::size_t i = start;
        std::size_t j = 0;
        while (i < text.size() && j < part.size()) {
            std::size_t next_i = i;
            std::size_t next_j = j;
            if (NextUpper(text, next_i) != NextUpper(part, next_j)) break;
            i = next_i;
            j = next_j;
        }
        if (j == part.size()) return TextSpan{start, i - start};
        if (start >= text.size()) return std::nullopt;
        (void)NextCodePoint(text, start);
    }
}

}  // namespace quorrel
