#include "platform/charset.hpp"

#include <algorithm>
#include <iterator>

#include "platform/code_page.hpp"
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

}  // namespace quorrel
