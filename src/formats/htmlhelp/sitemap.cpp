#include "formats/htmlhelp/sitemap.hpp"

#include "platform/text.hpp"
#include "project/tag_value.hpp"

namespace quorrel {

static bool StartsWithUpper(std::string_view text, std::string_view upper) {
    if (text.size() < upper.size()) return false;
    for (std::size_t i = 0; i < upper.size(); ++i) {
        if (UpperAscii(text[i]) != upper[i]) return false;
    }
    return true;
}

void CheckSitemapKind(TextFiles& texts, std::string_view file, std::string_view text) {
    texts.CheckKind(file, text, {"SITEMAP", "<OBJECT", "<PARAM"});
}

SitemapTags FindSitemapTags(std::string_view line) {
    SitemapTags tags;
    for (std::size_t at = line.find('<'); at != npos; at = line.find('<', at + 1)) {
        const std::string_view tag = line.substr(at + 1);
        tags.list_start |= StartsWithUpper(tag, "UL");
        tags.list_end |= StartsWithUpper(tag, "/UL");
        tags.entry_start |= StartsWithUpper(tag, "LI");
        tags.object_start |= StartsWithUpper(tag, "OBJECT");
        tags.object_end |= StartsWithUpper(tag, "/OBJECT>");
    }
    return tags;
}

SitemapParam ReadSitemapParam(std::string_view line) {
    SitemapParam param;
    param.name = TagValue(line, 1, "NAME", "", TagMode::kRead);
    if (!param.name.empty()) param.value = TagValue(line, 1, "VALUE", "", TagMode::kRead);
    return param;
}

void ReadSiteProperties(std::string_view& line, SitemapTags& tags, TextLines& lines,
                        std::string& properties, const Trap& trap) {
    if (!tags.object_start || !ContainsIgnoringAsciiCase(line, "TEXT/SITE PROPERTIES")) return;
    properties.append(line).append(kLineEnd);
    while (!ContainsIgnoringAsciiCase(line, "</OBJECT")) {
        if (!trap([&] { line = lines.ReadLine(); })) break;
        properties.append(line).append(kLineEnd);
    }
    tags = FindSitemapTags(line);
}

std::string SitemapHead(std::string_view properties) {
    std::string head =
        "<!DOCTYPE HTML PUBLIC \"-//IETF//DTD HTML//EN\">\r\n"
        "<HTML>\r\n"
        "<HEAD>\r\n"
        "<!-- Sitemap 1.0 -->\r\n"
        "</HEAD><BODY>\r\n"
        "<UL>\r\n";
    constexpr std::size_t kWorthKeeping = 20;
    if (CountCharacters(properties) > kWorthKeeping) head += properties;
    return head;
}

std::string_view SitemapTail() {
    return "</UL>\r\n</BODY></HTML>\r\n";
}

std::string SitemapIndent(int level) {
    return std::string(static_cast<std::size_t>(level) * 5, ' ');
}

void AppendSitemapParam(std::string& text, std::string_view indent, std::string_view name,
                        std::string_view value) {
    text.append(indent).append("    <param name=\"").append(name).append("\" value=\"");
    text.append(value).append("\">").append(kLineEnd);
}

}  // namespace quorrel
