// The insertion modes around the body and in it; those of tables are in html_tree_tables.cpp.
#include <algorithm>

#include "editor/html_tree_builder.hpp"
#include "platform/text.hpp"

namespace quorrel::html {

void HtmlTreeBuilder::ProcessToken() {
    if (Is(TokenKind::kNothing)) return;
    const bool skips = skips_line_feed_ && Is(TokenKind::kBlank);
    skips_line_feed_ = skips;
    if (IsInForeignContent() && Foreign()) return;
    // The modes hand a token on only so often.
    for (int tries = 0; tries < 16; ++tries) {
        if (Process(mode_)) break;
    }
    if (skips) skips_line_feed_ = false;
}

bool HtmlTreeBuilder::Process(Mode mode) {
    switch (mode) {
        case Mode::kInitial:
            return Initial();
        case Mode::kBeforeHtml:
            return BeforeHtml();
        case Mode::kBeforeHead:
            return BeforeHead();
        case Mode::kInHead:
            return InHead();
        case Mode::kInHeadNoscript:
            return InHeadNoscript();
        case Mode::kAfterHead:
            return AfterHead();
        case Mode::kInBody:
            return InBody();
        case Mode::kInTable:
            return InTable();
        case Mode::kInCaption:
            return InCaption();
        case Mode::kInColumnGroup:
            return InColumnGroup();
        case Mode::kInTableBody:
            return InTableBody();
        case Mode::kInRow:
            return InRow();
        case Mode::kInCell:
            return InCell();
        case Mode::kInSelect:
            return InSelect();
        case Mode::kInSelectInTable:
            return InSelectInTable();
        case Mode::kAfterBody:
            return AfterBody();
        case Mode::kAfterAfterBody:
            return AfterAfterBody();
    }
    return true;
}

bool HtmlTreeBuilder::IsQuirky(const HtmlToken& token) const {
    const Doctype doctype = ParseDoctype(text_.substr(token.begin, token.end - token.begin));
    if (doctype.name != "html") return true;
    const std::string id = LowerAscii(doctype.public_id.value_or(""));
    if (id == "-/w3c/dtd html 4.0 transitional/en" || id == "html") return true;
    const auto starts_with = [&](std::string_view start) { return id.starts_with(start); };
    const bool is_late = starts_with("-//w3c//dtd html 4.01 frameset//") ||
                         starts_with("-//w3c//dtd html 4.01 transitional//");
    if (is_late) return !doctype.system_id.has_value();
    constexpr std::string_view kOld[] = {"+//silmaril//",
                                         "-//as//dtd html",
                                         "-//advasoft ltd//dtd html",
                                         "-//ietf//dtd html",
                                         "-//metrius//",
                                         "-//microsoft//dtd internet explorer",
                                         "-//netscape comm. corp.//dtd",
                                         "-//o'reilly and associates//dtd html",
                                         "-//sq//dtd html",
                                         "-//softquad",
                                         "-//spyglass//",
                                         "-//sun microsystems corp.//dtd hotjava",
                                         "-//w3c//dtd html 3",
                                         "-//w3c//dtd html 4.0 frameset//",
                                         "-//w3c//dtd html 4.0 transitional//",
                                         "-//w3c//dtd html experimental",
                                         "-//w3c//dtd w3 html",
                                         "-//w3o//",
                                         "-//webtechs//"};
    return std::any_of(std::begin(kOld), std::end(kOld), starts_with);
}

bool HtmlTreeBuilder::Initial() {
    if (Is(TokenKind::kBlank)) return true;
    if (Is(TokenKind::kComment)) {
        AppendLeaf(kDocument);
        return true;
    }
    mode_ = Mode::kBeforeHtml;
    if (!Is(TokenKind::kDoctype)) return false;
    is_quirky_ = IsQuirky(*token_);
    AppendLeaf(kDocument);
    return true;
}

bool HtmlTreeBuilder::BeforeHtml() {
    if (Is(TokenKind::kBlank) || Is(TokenKind::kDoctype)) return true;
    if (Is(TokenKind::kComment)) {
        AppendLeaf(kDocument);
        return true;
    }
    if (Is(TokenKind::kEnd) && !IsEnd({Tag("head"), Tag("body"), Tag("html"), Tag("br")})) {
        return true;
    }
    mode_ = Mode::kBeforeHead;
    if (IsStart({Tag("html")})) {
        html_ = InsertElement();
        return true;
    }
    html_ = InsertImplied(Tag("html"));
    return false;
}

bool HtmlTreeBuilder::BeforeHead() {
    if (Is(TokenKind::kBlank) || Is(TokenKind::kDoctype)) return true;
    if (Is(TokenKind::kComment)) {
        InsertLeaf();
        return true;
    }
    if (IsStart({Tag("html")})) return InBody();
    if (Is(TokenKind::kEnd) && !IsEnd({Tag("head"), Tag("body"), Tag("html"), Tag("br")})) {
        return true;
    }
    mode_ = Mode::kInHead;
    if (IsStart({Tag("head")})) {
        head_ = InsertElement();
        return true;
    }
    head_ = InsertImplied(Tag("head"));
    return false;
}

bool HtmlTreeBuilder::InHead() {
    if (Is(TokenKind::kBlank) || Is(TokenKind::kComment)) {
        InsertLeaf();
        return true;
    }
    if (Is(TokenKind::kDoctype) || IsStart({Tag("head")})) return true;
    if (IsStart({Tag("html")})) return InBody();
    if (IsStart({Tag("base"), Tag("basefont"), Tag("bgsound"), Tag("link"), Tag("meta")})) {
        InsertVoid();
        return true;
    }
    if (IsStart({Tag("title"), Tag("noframes"), Tag("style"), Tag("script")})) {
        InsertRaw();
        return true;
    }
    if (IsStart({Tag("noscript")})) {
        InsertElement();
        mode_ = Mode::kInHeadNoscript;
        return true;
    }
    if (IsStart({Tag("template")})) {
        InsertElement();
        formatting_.push_back(kMarker);
        mode_ = Mode::kInBody;
        return true;
    }
    if (IsEnd({Tag("template")})) {
        EndTemplate();
        return true;
    }
    if (Is(TokenKind::kEnd) && !IsEnd({Tag("head"), Tag("body"), Tag("html"), Tag("br")})) {
        return true;
    }
    const bool is_end = IsEnd({Tag("head")});
    if (is_end) NoteEnd(head_);
    Pop();
    mode_ = Mode::kAfterHead;
    return is_end;
}

bool HtmlTreeBuilder::InHeadNoscript() {
    if (IsStart({Tag("basefont"), Tag("bgsound"), Tag("link"), Tag("meta"), Tag("noframes"),
                 Tag("style")}) ||
        Is(TokenKind::kBlank) || Is(TokenKind::kComment)) {
        return InHead();
    }
    if (Is(TokenKind::kDoctype) || IsStart({Tag("head"), Tag("noscript")})) return true;
    if (Is(TokenKind::kEnd) && !IsEnd({Tag("noscript"), Tag("br")})) return true;
    const bool is_end = IsEnd({Tag("noscript")});
    if (is_end) NoteEnd(Current());
    Pop();
    mode_ = Mode::kInHead;
    return is_end;
}

bool HtmlTreeBuilder::AfterHead() {
    if (Is(TokenKind::kBlank) || Is(TokenKind::kComment)) {
        InsertLeaf();
        return true;
    }
    if (Is(TokenKind::kDoctype) || IsStart({Tag("head")})) return true;
    if (IsStart({Tag("html")})) return InBody();
    if (IsStart({Tag("body")})) {
        body_ = InsertElement();
        mode_ = Mode::kInBody;
        return true;
    }
    if (IsStart({Tag("base"), Tag("basefont"), Tag("bgsound"), Tag("link"), Tag("meta"),
                 Tag("noframes"), Tag("script"), Tag("style"), Tag("template"), Tag("title")})) {
        stack_.push_back(head_);
        InHead();
        RemoveFromStack(head_);
        return true;
    }
    if (IsEnd({Tag("template")})) return InHead();
    if (Is(TokenKind::kEnd) && !IsEnd({Tag("body"), Tag("html"), Tag("br")})) return true;
    body_ = InsertImplied(Tag("body"));
    mode_ = Mode::kInBody;
    return false;
}

/// The engine goes back into the body for white space too, so that a comment behind it is there.
bool HtmlTreeBuilder::AfterBody() {
    if (Is(TokenKind::kDoctype)) return true;
    if (Is(TokenKind::kComment)) {
        AppendLeaf(html_);
        return true;
    }
    if (IsStart({Tag("html")})) return InBody();
    if (IsEnd({Tag("html")})) {
        NoteEnd(html_);
        mode_ = Mode::kAfterAfterBody;
        return true;
    }
    mode_ = Mode::kInBody;
    return false;
}

bool HtmlTreeBuilder::AfterAfterBody() {
    if (Is(TokenKind::kComment)) {
        AppendLeaf(kDocument);
        return true;
    }
    if (Is(TokenKind::kDoctype) || IsStart({Tag("html")})) return InBody();
    mode_ = Mode::kInBody;
    return false;
}

bool HtmlTreeBuilder::InBody() {
    if (IsText()) {
        Reconstruct();
        InsertLeaf();
    } else if (Is(TokenKind::kComment)) {
        InsertLeaf();
    } else if (Is(TokenKind::kStart)) {
        StartInBody();
    } else if (IsEnd({Tag("body"), Tag("html")})) {
        if (!HasInScope(Tag("body"))) return true;
        if (body_ != kNone && token_->name == Tag("body")) NoteEnd(body_);
        mode_ = Mode::kAfterBody;
        return token_->name == Tag("body");
    } else if (Is(TokenKind::kEnd)) {
        EndInBody();
    }
    return true;
}

void HtmlTreeBuilder::StartInBody() {
    if (IsStart({Tag("html")})) return AddMissingAttributes(html_);
    if (IsStart({Tag("body")})) {
        if (body_ != kNone && stack_.size() > 1 && stack_[1] == body_) AddMissingAttributes(body_);
        return;
    }
    if (IsStart({Tag("base"), Tag("basefont"), Tag("bgsound"), Tag("link"), Tag("meta"),
                 Tag("noframes"), Tag("script"), Tag("style"), Tag("template"), Tag("title")})) {
        InHead();
        return;
    }
    if (IsStart({Tag("frameset"), Tag("caption"), Tag("col"), Tag("colgroup"), Tag("frame"),
                 Tag("head"), Tag("tbody"), Tag("td"), Tag("tfoot"), Tag("th"), Tag("thead"),
                 Tag("tr")})) {
        return;
    }
    if (StartBlockInBody() || StartInlineInBody()) return;
    Reconstruct();
    InsertElement();
}

bool HtmlTreeBuilder::StartBlockInBody() {
    switch (token_->name) {
        case Tag("address"):
        case Tag("article"):
        case Tag("aside"):
        case Tag("blockquote"):
        case Tag("center"):
        case Tag("details"):
        case Tag("dialog"):
        case Tag("dir"):
        case Tag("div"):
        case Tag("dl"):
        case Tag("fieldset"):
        case Tag("figcaption"):
        case Tag("figure"):
        case Tag("footer"):
        case Tag("header"):
        case Tag("hgroup"):
        case Tag("main"):
        case Tag("menu"):
        case Tag("nav"):
        case Tag("ol"):
        case Tag("p"):
        case Tag("section"):
        case Tag("summary"):
        case Tag("ul"):
            ClosePInScope();
            InsertElement();
            return true;
        case Tag("h1"):
        case Tag("h2"):
        case Tag("h3"):
        case Tag("h4"):
        case Tag("h5"):
        case Tag("h6"):
            ClosePInScope();
            if (IsHeading(CurrentName())) Pop();
            InsertElement();
            return true;
        case Tag("pre"):
        case Tag("listing"):
            ClosePInScope();
            InsertElement();
            skips_line_feed_ = true;
            return true;
        case Tag("form"):
            if (form_ != kNone) return true;
            ClosePInScope();
            form_ = InsertElement();
            return true;
        case Tag("li"):
            StartListItem();
            return true;
        case Tag("dd"):
        case Tag("dt"):
            StartDescription();
            return true;
        case Tag("plaintext"):
            ClosePInScope();
            InsertElement();
            return true;
        case Tag("table"):
            if (!is_quirky_) ClosePInScope();
            InsertElement();
            mode_ = Mode::kInTable;
            return true;
        case Tag("hr"):
            ClosePInScope();
            InsertVoid();
            return true;
        case Tag("xmp"):
            ClosePInScope();
            Reconstruct();
            InsertRaw();
            return true;
        default:
            return false;
    }
}

bool HtmlTreeBuilder::StartInlineInBody() {
    const TagName name = token_->name;
    switch (name) {
        case Tag("a"):
            StartAnchor();
            return true;
        case Tag("nobr"):
            Reconstruct();
            if (HasInScope(name)) {
                Adopt(name);
                Reconstruct();
            }
            PushFormatting(InsertElement());
            return true;
        case Tag("button"):
            if (HasInScope(name)) {
                CloseImplied();
                PopThrough(name);
            }
            Reconstruct();
            InsertElement();
            return true;
        case Tag("applet"):
        case Tag("marquee"):
        case Tag("object"):
            Reconstruct();
            InsertElement();
            formatting_.push_back(kMarker);
            return true;
        case Tag("param"):
        case Tag("source"):
        case Tag("track"):
            InsertVoid();
            return true;
        case Tag("image"): {
            Reconstruct();
            const NodeId image = InsertElement();
            nodes_[image].hash += HashOfStartTag(Tag("img")) - HashOfStartTag(name);
            nodes_[image].name = Tag("img");
            Pop();
            return true;
        }
        case Tag("textarea"):
        case Tag("iframe"):
        case Tag("noembed"):
            InsertRaw();
            return true;
        case Tag("select"):
            StartSelect();
            return true;
        case Tag("optgroup"):
        case Tag("option"):
            if (CurrentIs(Tag("option"))) Pop();
            Reconstruct();
            InsertElement();
            return true;
        case Tag("rb"):
        case Tag("rtc"):
        case Tag("rp"):
        case Tag("rt"):
            Ruby();
            return true;
        case Tag("math"):
        case Tag("svg"):
            Reconstruct();
            InsertElement(name == Tag("svg") ? Space::kSvg : Space::kMath);
            if (token_->is_self_closing) Pop();
            return true;
        default:
            break;
    }
    if (IsFormatting(name)) {
        Reconstruct();
        PushFormatting(InsertElement());
        return true;
    }
    if (!IsVoidElement(name)) return false;
    Reconstruct();
    InsertVoid();
    return true;
}

void HtmlTreeBuilder::StartAnchor() {
    const NodeId open = FormattingElement(Tag("a"));
    if (open != kNone) {
        Adopt(Tag("a"));
        RemoveFromFormatting(open);
        RemoveFromStack(open);
    }
    Reconstruct();
    PushFormatting(InsertElement());
}

void HtmlTreeBuilder::StartSelect() {
    Reconstruct();
    InsertElement();
    const bool is_in_table = mode_ == Mode::kInTable || mode_ == Mode::kInCaption ||
                             mode_ == Mode::kInTableBody || mode_ == Mode::kInRow ||
                             mode_ == Mode::kInCell;
    mode_ = is_in_table ? Mode::kInSelectInTable : Mode::kInSelect;
}

void HtmlTreeBuilder::Ruby() {
    const bool is_part = token_->name == Tag("rp") || token_->name == Tag("rt");
    if (HasInScope(Tag("ruby"))) CloseImplied(is_part ? Tag("rtc") : 0);
    InsertElement();
}

void HtmlTreeBuilder::StartListItem() {
    for (std::size_t at = stack_.size(); at-- > 0;) {
        Spend(1);
        const TagName name = nodes_[stack_[at]].name;
        if (IsHtml(stack_[at], Tag("li"))) {
            CloseImplied(Tag("li"));
            PopThrough(Tag("li"));
            break;
        }
        if (IsSpecial(name) && name != Tag("address") && name != Tag("div") && name != Tag("p")) {
            break;
        }
    }
    ClosePInScope();
    InsertElement();
}

void HtmlTreeBuilder::StartDescription() {
    for (std::size_t at = stack_.size(); at-- > 0;) {
        Spend(1);
        const TagName name = nodes_[stack_[at]].name;
        if (name == Tag("dd") || name == Tag("dt")) {
            CloseImplied(name);
            PopThrough(name);
            break;
        }
        if (IsSpecial(name) && name != Tag("address") && name != Tag("div") && name != Tag("p")) {
            break;
        }
    }
    ClosePInScope();
    InsertElement();
}

void HtmlTreeBuilder::EndInBody() {
    if (token_->name == Tag("template")) return EndTemplate();
    if (EndBlockInBody()) return;
    if (IsFormatting(token_->name) || token_->name == Tag("nobr") || token_->name == Tag("a")) {
        return Adopt(token_->name);
    }
    EndOther();
}

bool HtmlTreeBuilder::EndBlockInBody() {
    const TagName name = token_->name;
    if (name == Tag("p")) {
        if (!HasInScope(name, Scope::kButton)) InsertImplied(name);
        CloseImplied(name);
        PopThrough(name);
        return true;
    }
    if (name == Tag("br")) {
        Reconstruct();
        const NodeId node = InsertElement();
        nodes_[node].hash = HashOfStartTag(name);
        Pop();
        return true;
    }
    if (name == Tag("li")) {
        if (!HasInScope(name, Scope::kListItem)) return true;
        CloseImplied(name);
        PopThrough(name);
        return true;
    }
    if (IsHeading(name)) {
        const auto is_open = [&](TagName heading) { return HasInScope(heading); };
        const TagName headings[] = {Tag("h1"), Tag("h2"), Tag("h3"),
                                    Tag("h4"), Tag("h5"), Tag("h6")};
        if (std::none_of(std::begin(headings), std::end(headings), is_open)) return true;
        CloseImplied();
        while (stack_.size() > 1) {
            const NodeId node = Current();
            Pop();
            if (!IsHeading(nodes_[node].name)) continue;
            NoteEnd(node);
            break;
        }
        return true;
    }
    if (name == Tag("form")) {
        const NodeId form = form_;
        form_ = kNone;
        if (form == kNone || !IsOnStack(form) || !HasInScope(name)) return true;
        CloseImplied();
        NoteEnd(form);
        RemoveFromStack(form);
        return true;
    }
    switch (name) {
        case Tag("applet"):
        case Tag("marquee"):
        case Tag("object"):
            if (!HasInScope(name)) return true;
            CloseImplied();
            PopThrough(name);
            ClearToMarker();
            return true;
        case Tag("dd"):
        case Tag("dt"):
            if (!HasInScope(name)) return true;
            CloseImplied(name);
            PopThrough(name);
            return true;
        case Tag("address"):
        case Tag("article"):
        case Tag("aside"):
        case Tag("blockquote"):
        case Tag("button"):
        case Tag("center"):
        case Tag("details"):
        case Tag("dialog"):
        case Tag("dir"):
        case Tag("div"):
        case Tag("dl"):
        case Tag("fieldset"):
        case Tag("figcaption"):
        case Tag("figure"):
        case Tag("footer"):
        case Tag("header"):
        case Tag("hgroup"):
        case Tag("listing"):
        case Tag("main"):
        case Tag("menu"):
        case Tag("nav"):
        case Tag("ol"):
        case Tag("pre"):
        case Tag("section"):
        case Tag("summary"):
        case Tag("ul"):
            if (!HasInScope(name)) return true;
            CloseImplied();
            PopThrough(name);
            return true;
        default:
            return false;
    }
}

void HtmlTreeBuilder::EndOther() {
    for (std::size_t at = stack_.size(); at-- > 0;) {
        Spend(1);
        const NodeId node = stack_[at];
        if (nodes_[node].name == token_->name && nodes_[node].space == Space::kHtml) {
            CloseImplied(token_->name);
            PopThrough(token_->name);
            return;
        }
        if (nodes_[node].space == Space::kHtml && IsSpecial(nodes_[node].name)) return;
    }
}

void HtmlTreeBuilder::EndTemplate() {
    if (std::none_of(stack_.begin(), stack_.end(),
                     [&](NodeId node) { return IsHtml(node, Tag("template")); })) {
        return;
    }
    CloseImplied();
    PopThrough(Tag("template"));
    ClearToMarker();
    ResetMode();
}

bool IsFormatting(TagName name) {
    switch (name) {
        case Tag("a"):
        case Tag("b"):
        case Tag("big"):
        case Tag("code"):
        case Tag("em"):
        case Tag("font"):
        case Tag("i"):
        case Tag("nobr"):
        case Tag("s"):
        case Tag("small"):
        case Tag("strike"):
        case Tag("strong"):
        case Tag("tt"):
        case Tag("u"):
            return true;
        default:
            return false;
    }
}

bool IsHeading(TagName name) {
    switch (name) {
        case Tag("h1"):
        case Tag("h2"):
        case Tag("h3"):
        case Tag("h4"):
        case Tag("h5"):
        case Tag("h6"):
            return true;
        default:
            return false;
    }
}

bool IsSpecial(TagName name) {
    switch (name) {
        case Tag("applet"):
        case Tag("button"):
        case Tag("hgroup"):
        case Tag("iframe"):
        case Tag("marquee"):
        case Tag("noembed"):
        case Tag("noframes"):
        case Tag("noscript"):
        case Tag("object"):
        case Tag("select"):
        case Tag("template"):
        case Tag("textarea"):
        case Tag("track"):
        case Tag("wbr"):
            return true;
        case Tag("legend"):
        case Tag("optgroup"):
        case Tag("option"):
            return false;
        default:
            return IsBlockTag(name) || IsVoidElement(name);
    }
}

}  // namespace quorrel::html
