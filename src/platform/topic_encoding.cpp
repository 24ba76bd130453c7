#include "platform/topic_encoding.hpp"

#include <algorithm>

#include "platform/charset.hpp"
#include "platform/edit_surface.hpp"
#include "platform/failure.hpp"
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

bool IsBlank(char c) {
    return c == ' ' || c == '\t' || c == '\r' || c == '\n';
}

bool StartsWithTag(std::string_view text, std::string_view upper_name) {
    return FindIgnoringAsciiCase(text.substr(0, upper_name.size() + 1), upper_name) == 1;
}

/// Whether the text is a frameset: the tag counts outside comments and scripts.
bool IsFrameset(std::string_view text) {
    std::size_t at = 0;
    while ((at = text.find('<', at)) != npos) {
        const std::string_view rest = text.substr(at);
        const auto skip_to = [&](std::string_view end) {
            const std::size_t found = FindIgnoringAsciiCase(text, end, at);
            return found == npos ? text.size() : found + end.size();
        };
        if (StartsWithTag(rest, "FRAMESET")) return true;
        if (StartsWithTag(rest, "BODY")) return false;
        if (rest.starts_with("<!--")) {
            at = skip_to("-->");
        } else if (StartsWithTag(rest, "SCRIPT")) {
            at = skip_to("</SCRIPT");
        } else if (StartsWithTag(rest, "STYLE")) {
            at = skip_to("</STYLE");
        } else {
            ++at;
        }
    }
    return false;
}

/// Whether more than half of the text, blanks apart, stands in "<% %>" or "<?php ?>".
bool IsMostlyServerScript(std::string_view text) {
    const auto visible = [](std::string_view part) {
        return std::count_if(part.begin(), part.end(), [](char c) { return !IsBlank(c); });
    };
    std::ptrdiff_t script = 0;
    std::size_t at = 0;
    while ((at = text.find('<', at)) != npos) {
        const std::string_view rest = text.substr(at);
        const bool is_asp = rest.starts_with("<%");
        const bool is_php = FindIgnoringAsciiCase(rest.substr(0, 5), "<?PHP") == 0;
        if (!is_asp && !is_php) {
            ++at;
            continue;
        }
        const std::size_t end = text.find(is_asp ? "%>" : "?>", at + 2);
        const std::size_t size = end == npos ? rest.size() : end + 2 - at;
        script += visible(rest.substr(0, size));
        at += size;
    }
    return script > 0 && script * 2 > visible(text);
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

std::optional<TextEncoding> ToldEncoding(std::string_view head, int code_page) {
    using Form = TextEncoding::Form;
    const TextEncoding found = DetectEncoding(head, code_page);
    if (found.form != Form::kAnsi && found.form != Form::kUtf8) return found;
    const int declared = CodePageOfCharset(DeclaredCharset(head));
    if (declared == 0) return std::nullopt;
    if (declared == kUtf8CodePage) return TextEncoding{Form::kUtf8, code_page};
    return TextEncoding{Form::kAnsi, declared};
}

TextEncoding TopicEncoding(std::string_view bytes, int code_page) {
    return ToldEncoding(bytes, code_page).value_or(DetectEncoding(bytes, code_page));
}

/// `loaded`, unless the text declares another charset now.
static TextEncoding EncodingToWrite(std::string_view text, const TextEncoding& loaded) {
    using Form = TextEncoding::Form;
    if (loaded.form != Form::kAnsi && loaded.form != Form::kUtf8) return loaded;
    const int declared = CodePageOfCharset(DeclaredCharset(text));
    if (declared == 0) return loaded;
    if (declared == kUtf8CodePage) return {Form::kUtf8, loaded.code_page};
    return {Form::kAnsi, declared};
}

TopicText ReadTopicText(std::string_view bytes, int code_page) {
    TopicText topic;
    topic.encoding = TopicEncoding(bytes, code_page);
    topic.text = DecodeText(bytes, topic.encoding);
    if (IsFrameset(topic.text)) {
        throw RuntimeError(surface_error::kFrameset, "Document contains a frameset");
    }
    if (IsMostlyServerScript(topic.text)) {
        throw RuntimeError(surface_error::kServerScript,
                           "Document is primarily server side script");
    }
    return topic;
}

std::string TopicBytes(std::string_view text, const TextEncoding& encoding) {
    return EncodeProjectText(text, EncodingToWrite(text, encoding));
}

}  // namespace quorrel
