#include "platform/text.hpp"

#include <algorithm>
#include <cstring>
#include <limits>

namespace quorrel {

std::string UpperAscii(std::string_view text) {
    std::string result(text);
    for (char& c : result) c = UpperAscii(c);
    return result;
}

std::string LowerAscii(std::string_view text) {
    std::string result(text);
    for (char& c : result) c = LowerAscii(c);
    return result;
}

static bool EqualsUpper(const char* text, std::string_view upper) {
    for (std::size_t i = 0; i < upper.size(); ++i) {
        if (UpperAscii(text[i]) != upper[i]) return false;
    }
    return true;
}

std::size_t FindIgnoringAsciiCase(std::string_view text, std::string_view upper, std::size_t from) {
    if (from > text.size() || upper.size() > text.size() - from) return npos;
    if (upper.empty()) return from;
    const char* const begin = text.data();
    const char* const last = begin + text.size() - upper.size();
    const char first = upper[0];
    const bool is_letter = first >= 'A' && first <= 'Z';
    for (const char* p = begin + from; p <= last; ++p) {
        if (is_letter) {
            while (p <= last && UpperAscii(*p) != first) ++p;
        } else {
            p = static_cast<const char*>(
                std::memchr(p, first, static_cast<std::size_t>(last - p) + 1));
            if (p == nullptr) return npos;
        }
        if (p <= last && EqualsUpper(p, upper)) return static_cast<std::size_t>(p - begin);
    }
    return npos;
}

bool ContainsIgnoringAsciiCase(std::string_view text, std::string_view upper) {
    return FindIgnoringAsciiCase(text, upper) != npos;
}

std::size_t CountLines(std::string_view text) {
    return static_cast<std::size_t>(std::count(text.begin(), text.end(), '\n'));
}

std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to) {
    std::string result;
    std::size_t position = 0;
    for (;;) {
        const std::size_t hit = from.empty() ? npos : text.find(from, position);
        if (hit == npos) break;
        result.append(text.substr(position, hit - position)).append(to);
        position = hit + from.size();
    }
    result.append(text.substr(position));
    return result;
}

static std::string_view TrimOf(std::string_view text, std::string_view what) {
    const std::size_t first = text.find_first_not_of(what);
    if (first == npos) return {};
    return text.substr(first, text.find_last_not_of(what) - first + 1);
}

std::string_view TrimLeft(std::string_view text) {
    const std::size_t first = text.find_first_not_of(' ');
    return first == npos ? std::string_view{} : text.substr(first);
}

std::string_view TrimRight(std::string_view text) {
    const std::size_t last = text.find_last_not_of(' ');
    return last == npos ? std::string_view{} : text.substr(0, last + 1);
}

std::string_view Trim(std::string_view text) {
    return TrimOf(text, " ");
}
std::string_view TrimBlanksAndTabs(std::string_view text) {
    return TrimOf(text, " \t");
}

std::string_view BeforeLast(std::string_view text, char mark, std::string_view otherwise) {
    const std::size_t at = text.rfind(mark);
    return at == npos ? otherwise : text.substr(0, at);
}

std::string_view AfterLast(std::string_view text, char mark) {
    const std::size_t at = text.rfind(mark);
    return at == npos ? text : text.substr(at + 1);
}

static bool Continues(char c) {
    return (static_cast<unsigned char>(c) & 0xC0) == 0x80;
}

std::size_t CountCharacters(std::string_view text) {
    return static_cast<std::size_t>(
        std::count_if(text.begin(), text.end(), [](char c) { return !Continues(c); }));
}

std::size_t OffsetOfCharacter(std::string_view text, std::size_t characters) {
    if (characters >= text.size()) return text.size();
    std::size_t offset = 0;
    for (; offset < text.size(); ++offset) {
        if (Continues(text[offset])) continue;
        if (characters == 0) break;
        --characters;
    }
    return offset;
}

std::string_view FirstCharacters(std::string_view text, std::size_t characters) {
    if (text.size() <= characters) return text;
    return text.substr(0, OffsetOfCharacter(text, characters));
}

std::string ToIdentifier(std::string_view name) {
    std::string result;
    result.reserve(name.size());
    for (const char c : name) {
        if (Continues(c)) continue;
        const char upper = UpperAscii(c);
        const bool stays = (upper >= 'A' && upper <= 'Z') || (c >= '0' && c <= '9');
        result += stays ? c : '_';
    }
    return result;
}

std::int64_t LeadingNumber(std::string_view text) {
    text = TrimLeft(text);
    const bool negative = !text.empty() && text[0] == '-';
    if (negative || (!text.empty() && text[0] == '+')) text.remove_prefix(1);
    constexpr std::int64_t limit = std::numeric_limits<std::int64_t>::max();
    std::int64_t value = 0;
    for (const char c : text) {
        if (c < '0' || c > '9') break;
        const int digit = c - '0';
        value = value > (limit - digit) / 10 ? limit : value * 10 + digit;
    }
    return negative ? -value : value;
}

}  // namespace quorrel
