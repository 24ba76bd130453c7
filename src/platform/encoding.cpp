#include "platform/encoding.hpp"

#include "platform/charset.hpp"
#include "platform/text.hpp"
#include "platform/unicode.hpp"

namespace quorrel {
namespace {

using Form = TextEncoding::Form;

constexpr std::string_view kUtf8Mark = "\xEF\xBB\xBF";
constexpr std::string_view kUtf16LittleMark = "\xFF\xFE";
constexpr std::string_view kUtf16BigMark = "\xFE\xFF";

std::string DecodeUtf16(std::string_view bytes, bool big_endian) {
    std::string text;
    text.reserve(bytes.size());
    const auto unit = [&](std::size_t i) -> char32_t {
        const auto a = static_cast<unsigned char>(bytes[i]);
        const auto b = static_cast<unsigned char>(bytes[i + 1]);
        return big_endian ? static_cast<char32_t>(a << 8 | b) : static_cast<char32_t>(b << 8 | a);
    };
    const auto lone = [&](std::size_t i) {
        AppendUtf8(text, kLoneByte + static_cast<unsigned char>(bytes[i]));
    };
    std::size_t i = 0;
    while (i + 1 < bytes.size()) {
        const char32_t c = unit(i);
        const bool is_high = c >= 0xD800 && c <= 0xDBFF;
        const char32_t low = is_high && i + 3 < bytes.size() ? unit(i + 2) : 0;
        const char32_t pair = 0x10000 + ((c & 0x3FF) << 10) + (low & 0x3FF);
        if (is_high && low >= 0xDC00 && low <= 0xDFFF && !IsLoneByte(pair)) {
            AppendUtf8(text, pair);
            i += 4;
            continue;
        }
        if (c >= 0xD800 && c <= 0xDFFF) {  // half of a pair: keep its two bytes
            lone(i);
            lone(i + 1);
        } else {
            AppendUtf8(text, c);
        }
        i += 2;
    }
    if (i < bytes.size()) lone(i);
    return text;
}

void AppendUtf16(std::string& bytes, char32_t c, bool big_endian) {
    const auto put = [&](char32_t unit) {
        const char high = static_cast<char>(unit >> 8);
        const char low = static_cast<char>(unit & 0xFF);
        bytes += big_endian ? high : low;
        bytes += big_endian ? low : high;
    };
    if (c < 0x10000) {
        put(c);
    } else {
        put(0xD800 + ((c - 0x10000) >> 10));
        put(0xDC00 + ((c - 0x10000) & 0x3FF));
    }
}

/// The character of the decimal reference at `offset` ("&#1078;"), or 0. A reference that would
/// not be written back in the same way (leading zeros, no character) is none.
char32_t ReferenceAt(std::string_view text, std::size_t offset, std::size_t& size) {
    std::size_t i = offset + 2;
    if (i >= text.size() || text[i] < '1' || text[i] > '9') return 0;
    char32_t value = 0;
    while (i < text.size() && text[i] >= '0' && text[i] <= '9' && value < 0x110000) {
        value = value * 10 + static_cast<char32_t>(text[i] - '0');
        ++i;
    }
    if (i >= text.size() || text[i] != ';') return 0;
    if (value < 0x80 || value > 0x10FFFF || (value >= 0xD800 && value <= 0xDFFF)) return 0;
    if (IsLoneByte(value)) return 0;
    size = i + 1 - offset;
    return value;
}

std::string RestoreReferences(std::string text, const CodePage& page) {
    std::size_t from = 0;
    std::string result;
    std::string encoded;
    for (std::size_t at = text.find("&#"); at != npos; at = text.find("&#", at + 1)) {
        std::size_t size = 0;
        const char32_t c = ReferenceAt(text, at, size);
        encoded.clear();
        if (c == 0 || page.Encode(c, encoded)) continue;
        result.append(text, from, at - from);
        AppendUtf8(result, c);
        from = at + size;
    }
    if (from == 0) return text;
    return result.append(text, from);
}

/// The name in "<?xml ... encoding='name'".
std::string_view DeclaredXmlEncoding(std::string_view bytes) {
    if (!bytes.starts_with("<?xml")) return {};
    bytes = bytes.substr(0, bytes.find("?>"));
    constexpr std::string_view kName = "encoding";
    const std::size_t at = bytes.find(kName);
    const std::size_t quote = at == npos ? npos : bytes.find_first_of("'\"", at + kName.size());
    if (quote == npos) return {};
    const std::string_view name = bytes.substr(quote + 1);
    return name.substr(0, name.find(bytes[quote]));
}

/// Whether `text` comes back the same from a file in ISO-8859-1. A byte without a meaning stays
/// that byte; the ones from 0x80 to 0x9F would be control characters to other readers.
bool FitsLatin1(std::string_view text) {
    const CodePage& page = CodePage::Get(kLatin1CodePage);
    std::string bytes;
    for (std::size_t i = 0; i < text.size();) {
        const char32_t c = NextCodePoint(text, i);
        if (c >= 0x80 && !IsLoneByte(c) && !page.Encode(c, bytes)) return false;
        bytes.clear();
    }
    return !Contains(text, "&#") || RestoreReferences(std::string(text), page) == text;
}

}  // namespace

TextEncoding DetectEncoding(std::string_view bytes, int code_page) {
    if (bytes.starts_with(kUtf8Mark)) return {Form::kUtf8WithMark, code_page};
    if (bytes.starts_with(kUtf16LittleMark)) return {Form::kUtf16LittleEndian, code_page};
    if (bytes.starts_with(kUtf16BigMark)) return {Form::kUtf16BigEndian, code_page};
    if (IsAscii(bytes) || !IsValidUtf8(bytes)) return {Form::kAnsi, code_page};
    return {Form::kUtf8, code_page};
}

std::string DecodeText(std::string_view bytes, const TextEncoding& encoding) {
    switch (encoding.form) {
        case Form::kUtf16LittleEndian:
            return DecodeUtf16(bytes.substr(2), false);
        case Form::kUtf16BigEndian:
            return DecodeUtf16(bytes.substr(2), true);
        case Form::kUtf8WithMark:
            return CodePage::Get(kUtf8CodePage).Decode(bytes.substr(kUtf8Mark.size()));
        case Form::kUtf8:
            return CodePage::Get(kUtf8CodePage).Decode(bytes);
        case Form::kAnsi:
            break;
    }
    return IsAscii(bytes) ? std::string(bytes) : CodePage::Get(encoding.code_page).Decode(bytes);
}

DecodedText DecodeProjectText(std::string bytes, int code_page) {
    const TextEncoding encoding = DetectEncoding(bytes, code_page);
    std::string text = encoding.form == Form::kAnsi && IsAscii(bytes) ? std::move(bytes)
                                                                      : DecodeText(bytes, encoding);
    if (encoding.form == Form::kAnsi && Contains(text, "&#")) {
        text = RestoreReferences(std::move(text), CodePage::Get(code_page));
    }
    return {std::move(text), encoding};
}

DecodedText DecodeXmlText(std::string bytes, int code_page) {
    const TextEncoding found = DetectEncoding(bytes, code_page);
    if (found.form != Form::kAnsi && found.form != Form::kUtf8) {
        return {DecodeText(bytes, found), found};
    }
    const std::string_view name = DeclaredXmlEncoding(bytes);
    // Not the western page that its name means elsewhere: a reference to one of that page's
    // additions, a dash say, is needed in a file that keeps to the declaration.
    const int declared =
        UpperAscii(name) == "ISO-8859-1" ? kLatin1CodePage : CodePageOfCharset(name);
    if (declared == 0) return DecodeProjectText(std::move(bytes), code_page);
    if (declared == kUtf8CodePage) {
        const TextEncoding utf8{Form::kUtf8, code_page};
        return {DecodeText(bytes, utf8), utf8};
    }
    const TextEncoding ansi{Form::kAnsi, declared};
    std::string text = DecodeText(bytes, ansi);
    if (Contains(text, "&#")) text = RestoreReferences(std::move(text), CodePage::Get(declared));
    return {std::move(text), ansi};
}

DecodedText XmlToWrite(std::string text) {
    if (FitsLatin1(text)) return {std::move(text), {Form::kAnsi, kLatin1CodePage}};
    const std::string_view declared = DeclaredXmlEncoding(text);
    if (!declared.empty()) {
        text.replace(static_cast<std::size_t>(declared.data() - text.data()), declared.size(),
                     "UTF-8");
    }
    return {std::move(text), {Form::kUtf8, kLatin1CodePage}};
}

std::string EncodeProjectText(std::string_view text, const TextEncoding& encoding) {
    const bool little = encoding.form == Form::kUtf16LittleEndian;
    const bool big = encoding.form == Form::kUtf16BigEndian;
    std::string bytes;
    if (encoding.form == Form::kUtf8WithMark) bytes = kUtf8Mark;
    if (little) bytes = kUtf16LittleMark;
    if (big) bytes = kUtf16BigMark;
    if (!little && !big && IsAscii(text)) return bytes.append(text);

    const bool ansi = encoding.form == Form::kAnsi;
    const CodePage& page = CodePage::Get(ansi ? encoding.code_page : kUtf8CodePage);
    bytes.reserve(text.size() * (little || big ? 2 : 1));
    for (std::size_t i = 0; i < text.size();) {
        const char32_t c = NextCodePoint(text, i);
        if (IsLoneByte(c)) {
            bytes += static_cast<char>(c - kLoneByte);
        } else if (little || big) {
            AppendUtf16(bytes, c, big);
        } else if (c < 0x80) {
            bytes += static_cast<char>(c);
        } else if (!page.Encode(c, bytes)) {
            bytes.append("&#").append(std::to_string(static_cast<std::uint32_t>(c))).append(";");
        }
    }
    return bytes;
}

}  // namespace quorrel
