#include "editor/html_tokens.hpp"

namespace quorrel::html {

bool IsVoidElement(TagName name) {
    switch (name) {
        case Tag("area"):
        case Tag("base"):
        case Tag("basefont"):
        case Tag("bgsound"):
        case Tag("br"):
        case Tag("col"):
        case Tag("embed"):
        case Tag("frame"):
        case Tag("hr"):
        case Tag("img"):
        case Tag("input"):
        case Tag("keygen"):
        case Tag("link"):
        case Tag("meta"):
        case Tag("param"):
        case Tag("source"):
        case Tag("track"):
        case Tag("wbr"):
            return true;
        default:
            return false;
    }
}

bool IsRawElement(TagName name) {
    switch (name) {
        case Tag("iframe"):
        case Tag("noembed"):
        case Tag("noframes"):
        case Tag("plaintext"):
        case Tag("script"):
        case Tag("style"):
        case Tag("textarea"):
        case Tag("title"):
        case Tag("xmp"):
            return true;
        default:
            return false;
    }
}

bool KeepsBlanks(TagName name) {
    switch (name) {
        case Tag("listing"):
        case Tag("plaintext"):
        case Tag("pre"):
        case Tag("textarea"):
        case Tag("xmp"):
            return true;
        default:
            return false;
    }
}

bool IsBlockTag(TagName name) {
    switch (name) {
        case Tag("address"):
        case Tag("article"):
        case Tag("aside"):
        case Tag("base"):
        case Tag("blockquote"):
        case Tag("body"):
        case Tag("br"):
        case Tag("caption"):
        case Tag("center"):
        case Tag("col"):
        case Tag("colgroup"):
        case Tag("dd"):
        case Tag("details"):
        case Tag("dir"):
        case Tag("div"):
        case Tag("dl"):
        case Tag("dt"):
        case Tag("fieldset"):
        case Tag("figcaption"):
        case Tag("figure"):
        case Tag("footer"):
        case Tag("form"):
        case Tag("frame"):
        case Tag("frameset"):
        case Tag("h1"):
        case Tag("h2"):
        case Tag("h3"):
        case Tag("h4"):
        case Tag("h5"):
        case Tag("h6"):
        case Tag("head"):
        case Tag("header"):
        case Tag("hr"):
        case Tag("html"):
        case Tag("legend"):
        case Tag("li"):
        case Tag("link"):
        case Tag("listing"):
        case Tag("main"):
        case Tag("menu"):
        case Tag("meta"):
        case Tag("nav"):
        case Tag("ol"):
        case Tag("optgroup"):
        case Tag("option"):
        case Tag("p"):
        case Tag("param"):
        case Tag("plaintext"):
        case Tag("pre"):
        case Tag("script"):
        case Tag("section"):
        case Tag("style"):
        case Tag("summary"):
        case Tag("table"):
        case Tag("tbody"):
        case Tag("td"):
        case Tag("tfoot"):
        case Tag("th"):
        case Tag("thead"):
        case Tag("title"):
        case Tag("tr"):
        case Tag("ul"):
        case Tag("xmp"):
            return true;
        default:
            return false;
    }
}

bool IsInlineTag(TagName name) {
    switch (name) {
        case Tag("a"):
        case Tag("abbr"):
        case Tag("acronym"):
        case Tag("b"):
        case Tag("bdo"):
        case Tag("big"):
        case Tag("cite"):
        case Tag("code"):
        case Tag("del"):
        case Tag("dfn"):
        case Tag("em"):
        case Tag("font"):
        case Tag("i"):
        case Tag("ins"):
        case Tag("kbd"):
        case Tag("mark"):
        case Tag("nobr"):
        case Tag("q"):
        case Tag("s"):
        case Tag("samp"):
        case Tag("small"):
        case Tag("span"):
        case Tag("strike"):
        case Tag("strong"):
        case Tag("sub"):
        case Tag("sup"):
        case Tag("tt"):
        case Tag("u"):
        case Tag("var"):
            return true;
        default:
            return false;
    }
}

}  // namespace quorrel::html
