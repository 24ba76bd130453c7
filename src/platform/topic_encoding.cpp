#include "platform/topic_encoding.hpp"

#include <algorithm>

#include "platform/text.hpp"

namespace quorrel {
namespace {

struct Charset {
    std::string_view name;
    int code_page;
};

constexpr Charset kCharsets[] = {
    {"utf-8", kUtf8CodePage},
    {"utf8", kUtf8CodePage},
    {"us-ascii", 1252},
    {"iso-8859-1", 1252},
    {"latin1", 1252},
    {"iso-8859-2", 28592},
    {"iso-8859-4", 28594},
    {"iso-8859-5", 28595},
    {"iso-8859-6", 28596},
    {"iso-8859-7", 28597},
    {"iso-8859-8", 28598},
    {"iso-8859-9", 1254},
    {"iso-8859-11", 874},
    {"iso-8859-13", 28603},
    {"iso-8859-15", 28605},
    {"tis-620", 874},
    {"windows-874", 874},
    {"koi8-r", 20866},
    {"koi8-u", 21866},
    {"shift_jis", 932},
    {"shift-jis", 932},
    {"sjis", 932},
    {"x-sjis", 932},
    {"windows-31j", 932},
    {"euc-jp", 51932},
    {"gb2312", 936},
    {"gbk", 936},
    {"gb18030", 936},
    {"big5", 950},
    {"euc-kr", 949},
    {"ks_c_5601-1987", 949},
};

/// How far a charset declaration is looked for; browsers look at 1024 bytes.
constexpr std::size_t kDeclarationReach = 4096;

/// The name behind "charset=" in a tag without its ">".
std::string_view CharsetIn(std::string_view tag) {
    constexpr std::string_view kName = "CHARSET=";
    const std::size_t at = FindIgnoringAsciiCase(tag, kName);
    if (at == npos) return {};
    tag.remove_prefix(at + kName.size());
    const std::size_t first = tag.find_first_not_of(" \t\r\n\"'");
    if (first == npos) return {};
    tag.remove_prefix(first);
    return tag.substr(0, tag.find_first_of(" \t\r\n\"';/"));
}

std::string_view DeclaredCharset(std::string_view bytes) {
    bytes = bytes.substr(0, kDeclarationReach);
    bytes = bytes.substr(0, FindIgnoringAsciiCase(bytes, "<BODY"));
    for (std::size_t tag = FindIgnoringAsciiCase(bytes, "<META"); tag != npos;
         tag = FindIgnoringAsciiCase(bytes, "<META", tag + 1)) {
        const std::string_view name = CharsetIn(bytes.substr(tag, bytes.find('>', tag) - tag));
        if (!name.empty()) return name;
    }
    return {};
}

}  // namespace

int CodePageOfCharset(std::string_view name) {
    const std::string lower = LowerAscii(name);
    constexpr std::string_view kWindows = "windows-125";
    if (lower.starts_with(kWindows) && lower.size() == kWindows.size() + 1) {
        const char last = lower.back();
        return last >= '0' && last <= '8' ? 1250 + (last - '0') : 0;
    }
    const auto* const found = std::find_if(std::begin(kCharsets), std::end(kCharsets),
                                           [&](const Charset& set) { return set.name == lower; });
    return found == std::end(kCharsets) ? 0 : found->code_page;
}

TextEncoding TopicEncoding(std::string_view bytes, int code_page) {
    using Form = TextEncoding::Form;
    const TextEncoding found = DetectEncoding(bytes, code_page);
    if (found.form != Form::kAnsi && found.form != Form::kUtf8) return found;
    const int declared = CodePageOfCharset(DeclaredCharset(bytes));
    if (declared == kUtf8CodePage) return {Form::kUtf8, code_page};
    if (declared != 0) return {Form::kAnsi, declared};
    return found;
}

}  // namespace quorrel
