#include <algorithm>
#include <array>

#include "editor/html_tokens.hpp"

namespace quorrel::html {
namespace {

template <std::size_t kSize>
constexpr std::array<TagName, kSize> Sorted(std::array<TagName, kSize> names) {
    std::sort(names.begin(), names.end());
    return names;
}

}  // namespace

bool IsVoidElement(TagName name) {
    return IsOneOf(
        name, {Tag("area"), Tag("base"), Tag("basefont"), Tag("bgsound"), Tag("br"), Tag("col"),
               Tag("embed"), Tag("frame"), Tag("hr"), Tag("img"), Tag("input"), Tag("keygen"),
               Tag("link"), Tag("meta"), Tag("param"), Tag("source"), Tag("track"), Tag("wbr")});
}

bool IsRawElement(TagName name) {
    return IsOneOf(name, {Tag("iframe"), Tag("noembed"), Tag("noframes"), Tag("plaintext"),
                          Tag("script"), Tag("style"), Tag("textarea"), Tag("title"), Tag("xmp")});
}

bool KeepsBlanks(TagName name) {
    return IsOneOf(name,
                   {Tag("listing"), Tag("plaintext"), Tag("pre"), Tag("textarea"), Tag("xmp")});
}

bool PassesOverLineFeed(const HtmlToken& tag) {
    return tag.kind == TokenKind::kStart &&
           IsOneOf(tag.name, {Tag("listing"), Tag("pre"), Tag("textarea")});
}

bool IsBlockTag(TagName name) {
    static constexpr auto kBlocks = Sorted(std::array{
        Tag("address"),  Tag("article"), Tag("aside"),     Tag("base"),       Tag("blockquote"),
        Tag("body"),     Tag("br"),      Tag("caption"),   Tag("center"),     Tag("col"),
        Tag("colgroup"), Tag("dd"),      Tag("details"),   Tag("dir"),        Tag("div"),
        Tag("dl"),       Tag("dt"),      Tag("fieldset"),  Tag("figcaption"), Tag("figure"),
        Tag("footer"),   Tag("form"),    Tag("frame"),     Tag("frameset"),   Tag("h1"),
        Tag("h2"),       Tag("h3"),      Tag("h4"),        Tag("h5"),         Tag("h6"),
        Tag("head"),     Tag("header"),  Tag("hr"),        Tag("html"),       Tag("legend"),
        Tag("li"),       Tag("link"),    Tag("listing"),   Tag("main"),       Tag("menu"),
        Tag("meta"),     Tag("nav"),     Tag("ol"),        Tag("optgroup"),   Tag("option"),
        Tag("p"),        Tag("param"),   Tag("plaintext"), Tag("pre"),        Tag("script"),
        Tag("section"),  Tag("style"),   Tag("summary"),   Tag("table"),      Tag("tbody"),
        Tag("td"),       Tag("tfoot"),   Tag("th"),        Tag("thead"),      Tag("title"),
        Tag("tr"),       Tag("ul"),      Tag("xmp")});
    return std::binary_search(kBlocks.begin(), kBlocks.end(), name);
}

bool IsInlineTag(TagName name) {
    return IsOneOf(
        name, {Tag("a"),    Tag("abbr"), Tag("acronym"), Tag("b"),    Tag("bdo"),    Tag("big"),
               Tag("cite"), Tag("code"), Tag("del"),     Tag("dfn"),  Tag("em"),     Tag("font"),
               Tag("i"),    Tag("ins"),  Tag("kbd"),     Tag("mark"), Tag("nobr"),   Tag("q"),
               Tag("s"),    Tag("samp"), Tag("small"),   Tag("span"), Tag("strike"), Tag("strong"),
               Tag("sub"),  Tag("sup"),  Tag("tt"),      Tag("u"),    Tag("var")});
}

}  // namespace quorrel::html
