#include "editor/html_references.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <map>

#include "platform/text.hpp"
#include "platform/unicode.hpp"

namespace quorrel::html {
namespace {

constexpr char32_t kReplacement = 0xFFFD;

/// From 160 to 255. These may lack the semicolon.
constexpr std::string_view kLatinNames =
    "nbsp iexcl cent pound curren yen brvbar sect uml copy ordf laquo not shy reg macr deg plusmn "
    "sup2 sup3 acute micro para middot cedil sup1 ordm raquo frac14 frac12 frac34 iquest Agrave "
    "Aacute Acirc Atilde Auml Aring AElig Ccedil Egrave Eacute Ecirc Euml Igrave Iacute Icirc "
    "Iuml ETH Ntilde Ograve Oacute Ocirc Otilde Ouml times Oslash Ugrave Uacute Ucirc Uuml Yacute "
    "THORN szlig agrave aacute acirc atilde auml aring aelig ccedil egrave eacute ecirc euml "
    "igrave iacute icirc iuml eth ntilde ograve oacute ocirc otilde ouml divide oslash ugrave "
    "uacute ucirc uuml yacute thorn yuml ";

struct Name {
    std::string_view name;
    char32_t character;
};

constexpr Name kBareNames[] = {{"amp", '&'},  {"AMP", '&'}, {"lt", '<'},   {"LT", '<'},
                               {"gt", '>'},   {"GT", '>'},  {"quot", '"'}, {"QUOT", '"'},
                               {"COPY", 169}, {"REG", 174}};

constexpr Name kClosedNames[] = {
    {"apos", 39},     {"OElig", 338},   {"oelig", 339},    {"Scaron", 352},   {"scaron", 353},
    {"Yuml", 376},    {"fnof", 402},    {"circ", 710},     {"tilde", 732},    {"Alpha", 913},
    {"Beta", 914},    {"Gamma", 915},   {"Delta", 916},    {"Epsilon", 917},  {"Zeta", 918},
    {"Eta", 919},     {"Theta", 920},   {"Iota", 921},     {"Kappa", 922},    {"Lambda", 923},
    {"Mu", 924},      {"Nu", 925},      {"Xi", 926},       {"Omicron", 927},  {"Pi", 928},
    {"Rho", 929},     {"Sigma", 931},   {"Tau", 932},      {"Upsilon", 933},  {"Phi", 934},
    {"Chi", 935},     {"Psi", 936},     {"Omega", 937},    {"alpha", 945},    {"beta", 946},
    {"gamma", 947},   {"delta", 948},   {"epsilon", 949},  {"zeta", 950},     {"eta", 951},
    {"theta", 952},   {"iota", 953},    {"kappa", 954},    {"lambda", 955},   {"mu", 956},
    {"nu", 957},      {"xi", 958},      {"omicron", 959},  {"pi", 960},       {"rho", 961},
    {"sigmaf", 962},  {"sigma", 963},   {"tau", 964},      {"upsilon", 965},  {"phi", 966},
    {"chi", 967},     {"psi", 968},     {"omega", 969},    {"thetasym", 977}, {"upsih", 978},
    {"piv", 982},     {"ensp", 8194},   {"emsp", 8195},    {"thinsp", 8201},  {"zwnj", 8204},
    {"zwj", 8205},    {"lrm", 8206},    {"rlm", 8207},     {"ndash", 8211},   {"mdash", 8212},
    {"lsquo", 8216},  {"rsquo", 8217},  {"sbquo", 8218},   {"ldquo", 8220},   {"rdquo", 8221},
    {"bdquo", 8222},  {"dagger", 8224}, {"Dagger", 8225},  {"bull", 8226},    {"hellip", 8230},
    {"permil", 8240}, {"prime", 8242},  {"Prime", 8243},   {"lsaquo", 8249},  {"rsaquo", 8250},
    {"oline", 8254},  {"frasl", 8260},  {"euro", 8364},    {"image", 8465},   {"weierp", 8472},
    {"real", 8476},   {"trade", 8482},  {"alefsym", 8501}, {"larr", 8592},    {"uarr", 8593},
    {"rarr", 8594},   {"darr", 8595},   {"harr", 8596},    {"crarr", 8629},   {"lArr", 8656},
    {"uArr", 8657},   {"rArr", 8658},   {"dArr", 8659},    {"hArr", 8660},    {"forall", 8704},
    {"part", 8706},   {"exist", 8707},  {"empty", 8709},   {"nabla", 8711},   {"isin", 8712},
    {"notin", 8713},  {"ni", 8715},     {"prod", 8719},    {"sum", 8721},     {"minus", 8722},
    {"lowast", 8727}, {"radic", 8730},  {"prop", 8733},    {"infin", 8734},   {"ang", 8736},
    {"and", 8743},    {"or", 8744},     {"cap", 8745},     {"cup", 8746},     {"int", 8747},
    {"there4", 8756}, {"sim", 8764},    {"cong", 8773},    {"asymp", 8776},   {"ne", 8800},
    {"equiv", 8801},  {"le", 8804},     {"ge", 8805},      {"sub", 8834},     {"sup", 8835},
    {"nsub", 8836},   {"sube", 8838},   {"supe", 8839},    {"oplus", 8853},   {"otimes", 8855},
    {"perp", 8869},   {"sdot", 8901},   {"lceil", 8968},   {"rceil", 8969},   {"lfloor", 8970},
    {"rfloor", 8971}, {"lang", 10216},  {"rang", 10217},   {"loz", 9674},     {"spades", 9824},
    {"clubs", 9827},  {"hearts", 9829}, {"diams", 9830}};

struct Meaning {
    char32_t character = 0;
    bool may_be_bare = false;
};

using NameTable = std::map<std::string_view, Meaning>;

NameTable MakeNames() {
    NameTable names;
    char32_t character = 160;
    for (std::size_t at = 0; at < kLatinNames.size(); ++character) {
        const std::size_t end = kLatinNames.find(' ', at);
        names[kLatinNames.substr(at, end - at)] = {character, true};
        at = end + 1;
    }
    for (const Name& name : kBareNames) names[name.name] = {name.character, true};
    for (const Name& name : kClosedNames) names[name.name] = {name.character, false};
    return names;
}

constexpr bool IsDigit(char c) {
    return c >= '0' && c <= '9';
}
constexpr bool IsAlphanumeric(char c) {
    return IsDigit(c) || (LowerAscii(c) >= 'a' && LowerAscii(c) <= 'z');
}

/// Browsers read 128 to 159 as code page 1252.
char32_t FromNumber(std::uint32_t number) {
    constexpr std::array<char32_t, 32> kWestern = {
        0x20AC, 0x81,   0x201A, 0x192,  0x201E, 0x2026, 0x2020, 0x2021, 0x2C6,  0x2030, 0x160,
        0x2039, 0x152,  0x8D,   0x17D,  0x8F,   0x90,   0x2018, 0x2019, 0x201C, 0x201D, 0x2022,
        0x2013, 0x2014, 0x2DC,  0x2122, 0x161,  0x203A, 0x153,  0x9D,   0x17E,  0x178};
    if (number >= 0x80 && number <= 0x9F) return kWestern[number - 0x80];
    const bool is_surrogate = number >= 0xD800 && number <= 0xDFFF;
    if (number == 0 || number > 0x10FFFF || is_surrogate) return kReplacement;
    return number;
}

std::size_t DecodeNumber(std::string_view text, std::size_t offset, std::string& decoded) {
    std::size_t at = offset + 2;
    const bool is_hex = at < text.size() && LowerAscii(text[at]) == 'x';
    if (is_hex) ++at;
    const std::size_t first = at;
    std::uint32_t number = 0;
    for (; at < text.size(); ++at) {
        const char c = LowerAscii(text[at]);
        const bool is_letter = is_hex && c >= 'a' && c <= 'f';
        if (!IsDigit(c) && !is_letter) break;
        const int digit = is_letter ? c - 'a' + 10 : c - '0';
        number = std::min<std::uint32_t>(number * (is_hex ? 16 : 10) + digit, 0x110000);
    }
    if (at == first) return 0;
    AppendUtf8(decoded, FromNumber(number));
    if (at < text.size() && text[at] == ';') ++at;
    return at - offset;
}

}  // namespace

std::size_t DecodeReference(std::string_view text, std::size_t offset, ReferencePlace place,
                            std::string& decoded) {
    if (text.substr(offset).starts_with("&#")) return DecodeNumber(text, offset, decoded);
    static const NameTable names = MakeNames();
    constexpr std::size_t kLongest = 8;
    const std::size_t first = offset + 1;
    std::size_t end = first;
    while (end < text.size() && end - first <= kLongest && IsAlphanumeric(text[end])) ++end;
    if (end < text.size() && text[end] == ';') {
        const auto found = names.find(text.substr(first, end - first));
        if (found != names.end()) {
            AppendUtf8(decoded, found->second.character);
            return end + 1 - offset;
        }
    }
    for (std::size_t size = end - first; size >= 2; --size) {
        const auto found = names.find(text.substr(first, size));
        if (found == names.end() || !found->second.may_be_bare) continue;
        const char next = first + size < text.size() ? text[first + size] : ' ';
        const bool is_parameter = next == '=' || IsAlphanumeric(next);
        if (place == ReferencePlace::kAttribute && is_parameter) return 0;
        AppendUtf8(decoded, found->second.character);
        return first + size - offset;
    }
    return 0;
}

}  // namespace quorrel::html
