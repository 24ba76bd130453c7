#include "editor/page_parts.hpp"

#include <algorithm>
#include <iterator>

#include "editor/html_tokens.hpp"
#include "platform/text.hpp"

namespace quorrel {
namespace {

using html::HtmlToken;
using html::TokenKind;

constexpr std::size_t kLongestPath = 4096;

/// `text` up to the mark that ends it, without blanks and quotes around it.
std::string Unquoted(std::string_view text, char end) {
    // No path is longer; a mark that is missing again and again is not looked for to the end.
    text = text.substr(0, kLongestPath);
    std::string_view part = Trim(text.substr(0, text.find(end)));
    for (const char quote : {'"', '\''}) {
        if (part.starts_with(quote)) part = part.substr(1, part.find(quote, 1) - 1);
    }
    return std::string(part);
}

void AddStylesParts(std::string_view css, std::vector<std::string>& parts) {
    constexpr std::string_view kUrl = "URL(";
    constexpr std::string_view kImport = "@IMPORT";
    for (std::size_t at = 0; (at = FindIgnoringAsciiCase(css, kUrl, at)) != npos;) {
        at += kUrl.size();
        parts.push_back(Unquoted(css.substr(at), ')'));
    }
    for (std::size_t at = 0; (at = FindIgnoringAsciiCase(css, kImport, at)) != npos;) {
        at += kImport.size();
        parts.push_back(Unquoted(css.substr(at), ';'));
    }
}

void AddTagsParts(std::string_view tag, html::TagName name, std::vector<std::string>& parts) {
    for (html::HtmlAttribute& attribute : html::AttributesOf(tag)) {
        const bool is_part = attribute.name == "src" || attribute.name == "background" ||
                             attribute.name == "poster" ||
                             (attribute.name == "href" && name == html::Tag("link"));
        if (attribute.name == "style") {
            AddStylesParts(attribute.value, parts);
        } else if (is_part) {
            parts.push_back(std::move(attribute.value));
        }
    }
}

}  // namespace

std::vector<std::string> PartsOfPage(std::string_view html) {
    std::vector<std::string> parts;
    bool is_in_style = false;
    for (const HtmlToken& token : html::HtmlTokens(html)) {
        const std::string_view text = html.substr(token.begin, token.end - token.begin);
        if (token.kind == TokenKind::kStart) AddTagsParts(text, token.name, parts);
        if (token.kind == TokenKind::kRaw && is_in_style) AddStylesParts(text, parts);
        is_in_style = token.kind == TokenKind::kStart && token.name == html::Tag("style");
    }
    return parts;
}

std::vector<std::string> PartsOfStyleSheet(std::string_view css) {
    std::vector<std::string> parts;
    AddStylesParts(css, parts);
    return parts;
}

}  // namespace quorrel
