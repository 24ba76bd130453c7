#include "platform/topic_encoding.hpp"

#include "platform/charset.hpp"
#include "platform/text.hpp"

namespace quorrel {
namespace {

/// How far a charset declaration is looked for; browsers look at 1024 bytes.
constexpr std::size_t kDeclarationReach = 4096;

/// The name behind "charset" and "=" in a tag without its ">".
std::string_view CharsetIn(std::string_view tag) {
    constexpr std::string_view kName = "CHARSET";
    const std::size_t at = FindIgnoringAsciiCase(tag, kName);
    if (at == npos) return {};
    tag.remove_prefix(at + kName.size());
    const std::size_t equals = tag.find_first_not_of(" \t\r\n");
    if (equals == npos || tag[equals] != '=') return {};
    tag.remove_prefix(equals + 1);
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
