// The insertion mode of the body.
#include <algorithm>

#include "editor/html_tree_builder.hpp"

namespace quorrel::html {
namespace {

/// Elements that end a paragraph, and that their end tag ends with all that is open in them.
bool IsPlainBlock(TagName name) {
    return IsOneOf(
        name, {Tag("address"),  Tag("article"),    Tag("aside"),  Tag("blockquote"), Tag("center"),
               Tag("details"),  Tag("dialog"),     Tag("dir"),    Tag("div"),        Tag("dl"),
               Tag("fieldset"), Tag("figcaption"), Tag("figure"), Tag("footer"),     Tag("header"),
               Tag("hgroup"),   Tag("main"),       Tag("menu"),   Tag("nav"),        Tag("ol"),
               Tag("section"),  Tag("summary"),    Tag("ul")});
}

}  // namespace

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
    const TagName name = token_->name;
    if (IsPlainBlock(name) || name == Tag("p")) {
        ClosePInScope();
        InsertElement();
        return true;
    }
    if (IsHeading(name)) {
        ClosePInScope();
        if (IsHeading(CurrentName())) Pop();
        InsertElement();
        return true;
    }
    switch (name) {
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
            StartItem({Tag("li")});
            return true;
        case Tag("dd"):
        case Tag("dt"):
            StartItem({Tag("dd"), Tag("dt")});
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

/// A list item or a part of a description list ends the one before it.
void HtmlTreeBuilder::StartItem(std::initializer_list<TagName> ended) {
    for (std::size_t at = stack_.size(); at-- > 0;) {
        Spend(1);
        const TagName name = nodes_[stack_[at]].name;
        if (IsOneOf(name, ended)) {
            CloseElement(name, name);
            break;
        }
        if (IsSpecial(name) && !IsOneOf(name, {Tag("address"), Tag("div"), Tag("p")})) break;
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
        CloseElement(name, name);
    } else if (name == Tag("br")) {
        Reconstruct();
        nodes_[InsertElement()].hash = HashOfStartTag(name);
        Pop();
    } else if (name == Tag("li")) {
        if (HasInScope(name, Scope::kListItem)) CloseElement(name, name);
    } else if (IsHeading(name)) {
        EndHeading();
    } else if (name == Tag("form")) {
        EndForm();
    } else if (IsOneOf(name, {Tag("applet"), Tag("marquee"), Tag("object")})) {
        if (!HasInScope(name)) return true;
        CloseElement(name, 0);
        ClearToMarker();
    } else if (name == Tag("dd") || name == Tag("dt")) {
        if (HasInScope(name)) CloseElement(name, name);
    } else if (IsPlainBlock(name) || IsOneOf(name, {Tag("button"), Tag("listing"), Tag("pre")})) {
        if (HasInScope(name)) CloseElement(name, 0);
    } else {
        return false;
    }
    return true;
}

void HtmlTreeBuilder::CloseElement(TagName name, TagName except) {
    CloseImplied(except);
    PopThrough(name);
}

/// Any heading is ended by the end tag of any other.
void HtmlTreeBuilder::EndHeading() {
    const auto headings = {Tag("h1"), Tag("h2"), Tag("h3"), Tag("h4"), Tag("h5"), Tag("h6")};
    if (std::none_of(headings.begin(), headings.end(),
                     [&](TagName heading) { return HasInScope(heading); })) {
        return;
    }
    CloseImplied();
    while (stack_.size() > 1) {
        const NodeId node = Current();
        Pop();
        if (!IsHeading(nodes_[node].name)) continue;
        return NoteEnd(node);
    }
}

void HtmlTreeBuilder::EndForm() {
    const NodeId form = form_;
    form_ = kNone;
    if (form == kNone || !IsOnStack(form) || !HasInScope(Tag("form"))) return;
    CloseImplied();
    NoteEnd(form);
    RemoveFromStack(form);
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
    return IsOneOf(name, {Tag("a"), Tag("b"), Tag("big"), Tag("code"), Tag("em"), Tag("font"),
                          Tag("i"), Tag("nobr"), Tag("s"), Tag("small"), Tag("strike"),
                          Tag("strong"), Tag("tt"), Tag("u")});
}

bool IsHeading(TagName name) {
    return IsOneOf(name, {Tag("h1"), Tag("h2"), Tag("h3"), Tag("h4"), Tag("h5"), Tag("h6")});
}

bool IsSpecial(TagName name) {
    if (IsOneOf(name, {Tag("legend"), Tag("optgroup"), Tag("option")})) return false;
    return IsBlockTag(name) || IsVoidElement(name) ||
           IsOneOf(name, {Tag("applet"), Tag("button"), Tag("hgroup"), Tag("iframe"),
                          Tag("marquee"), Tag("noembed"), Tag("noframes"), Tag("noscript"),
                          Tag("object"), Tag("select"), Tag("template"), Tag("textarea")});
}

}  // namespace quorrel::html
