#include "platform/plain_surface/html_entities.hpp"

#include <algorithm>
#include <array>
#include <iterator>

#include "platform/text.hpp"

namespace quorrel {
namespace {

struct Name {
    std::string_view name;
    char32_t code;
};

constexpr Name kNames[] = {
    {"amp", '&'},       {"lt", '<'},        {"gt", '>'},        {"quot", '"'},
    {"apos", '\''},     {"ndash", 0x2013},  {"mdash", 0x2014},  {"lsquo", 0x2018},
    {"rsquo", 0x2019},  {"sbquo", 0x201A},  {"ldquo", 0x201C},  {"rdquo", 0x201D},
    {"bdquo", 0x201E},  {"bull", 0x2022},   {"hellip", 0x2026}, {"euro", 0x20AC},
    {"trade", 0x2122},  {"ensp", 0x2002},   {"emsp", 0x2003},   {"thinsp", 0x2009},
    {"lsaquo", 0x2039}, {"rsaquo", 0x203A}, {"dagger", 0x2020}, {"Dagger", 0x2021},
    {"larr", 0x2190},   {"uarr", 0x2191},   {"rarr", 0x2192},   {"darr", 0x2193},
    {"minus", 0x2212},  {"le", 0x2264},     {"ge", 0x2265},     {"ne", 0x2260},
};

/// The names of U+00A0 to U+00FF in order.
constexpr std::string_view kLatin1[] = {
    "nbsp",   "iexcl",  "cent",   "pound",  "curren", "yen",    "brvbar", "sect",   "uml",
    "copy",   "ordf",   "laquo",  "not",    "shy",    "reg",    "macr",   "deg",    "plusmn",
    "sup2",   "sup3",   "acute",  "micro",  "para",   "middot", "cedil",  "sup1",   "ordm",
    "raquo",  "frac14", "frac12", "frac34", "iquest", "Agrave", "Aacute", "Acirc",  "Atilde",
    "Auml",   "Aring",  "AElig",  "Ccedil", "Egrave", "Eacute", "Ecirc",  "Euml",   "Igrave",
    "Iacute", "Icirc",  "Iuml",   "ETH",    "Ntilde", "Ograve", "Oacute", "Ocirc",  "Otilde",
    "Ouml",   "times",  "Oslash", "Ugrave", "Uacute", "Ucirc",  "Uuml",   "Yacute", "THORN",
    "szlig",  "agrave", "aacute", "acirc",  "atilde", "auml",   "aring",  "aelig",  "ccedil",
    "egrave", "eacute", "ecirc",  "euml",   "igrave", "iacute", "icirc",  "iuml",   "eth",
    "ntilde", "ograve", "oacute", "ocirc",  "otilde", "ouml",   "divide", "oslash", "ugrave",
    "uacute", "ucirc",  "uuml",   "yacute", "thorn",  "yuml",
};
static_assert(std::size(kLatin1) == 96);

constexpr char32_t kReplacement = 0xFFFD;
/// Longer than every name and every number that is one.
constexpr std::size_t kLongest = 32;

bool IsAlphanumeric(char c) {
    const char upper = UpperAscii(c);
    return (upper >= 'A' && upper <= 'Z') || (c >= '0' && c <= '9');
}

int DigitOf(char c) {
    if (c >= '0' && c <= '9') return c - '0';
    const char upper = UpperAscii(c);
    return upper >= 'A' && upper <= 'F' ? upper - 'A' + 10 : 16;
}

std::optional<char32_t> CodeOfNumber(std::string_view digits) {
    const bool is_hex = !digits.empty() && UpperAscii(digits[0]) == 'X';
    if (is_hex) digits.remove_prefix(1);
    if (digits.empty()) return std::nullopt;
    const int base = is_hex ? 16 : 10;
    char32_t code = 0;
    for (const char c : digits) {
        const int digit = DigitOf(c);
        if (digit >= base) return std::nullopt;
        code = std::min<char32_t>(code * static_cast<char32_t>(base) + static_cast<char32_t>(digit),
                                  0x110000);
    }
    const bool is_surrogate = code >= 0xD800 && code <= 0xDFFF;
    return code == 0 || code > 0x10FFFF || is_surrogate ? kReplacement : code;
}

std::optional<char32_t> CodeOfName(std::string_view name) {
    const auto* latin = std::find(std::begin(kLatin1), std::end(kLatin1), name);
    if (latin != std::end(kLatin1)) return 0xA0 + static_cast<char32_t>(latin - kLatin1);
    const auto* found = std::find_if(std::begin(kNames), std::end(kNames),
                                     [&](const Name& known) { return known.name == name; });
    if (found == std::end(kNames)) return std::nullopt;
    return found->code;
}

}  // namespace

std::optional<HtmlEntity> EntityAt(std::string_view text, std::size_t offset) {
    if (offset >= text.size() || text[offset] != '&') return std::nullopt;
    const std::string_view rest = text.substr(offset + 1, kLongest);
    const bool is_number = rest.starts_with('#');
    std::size_t end = is_number ? 1 : 0;
    while (end < rest.size() && IsAlphanumeric(rest[end])) ++end;
    if (end == kLongest) return std::nullopt;
    const std::optional<char32_t> code =
        is_number ? CodeOfNumber(rest.substr(1, end - 1)) : CodeOfName(rest.substr(0, end));
    if (!code) return std::nullopt;
    const bool has_semicolon = end < rest.size() && rest[end] == ';';
    return HtmlEntity{*code, offset + 1 + end + (has_semicolon ? 1 : 0)};
}

}  // namespace quorrel
