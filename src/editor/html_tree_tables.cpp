// The insertion modes of tables and select boxes, and SVG and MathML.
#include <algorithm>

#include "editor/html_tree_builder.hpp"
#include "platform/text.hpp"

namespace quorrel::html {

void HtmlTreeBuilder::ClearStackTo(std::initializer_list<TagName> names) {
    while (stack_.size() > 1) {
        const TagName name = CurrentName();
        if (name == Tag("html") || name == Tag("template")) return;
        if (std::find(names.begin(), names.end(), name) != names.end()) return;
        Pop();
    }
}

bool HtmlTreeBuilder::InTable() {
    if (IsText()) {
        TextInTable();
        return true;
    }
    if (Is(TokenKind::kComment)) {
        InsertLeaf();
        return true;
    }
    if (Is(TokenKind::kDoctype)) return true;
    if (Is(TokenKind::kStart)) return StartInTable();
    if (IsEnd({Tag("table")})) {
        if (!HasInScope(Tag("table"), Scope::kTable)) return true;
        PopThrough(Tag("table"));
        ResetMode();
        return true;
    }
    if (IsEnd({Tag("body"), Tag("caption"), Tag("col"), Tag("colgroup"), Tag("html"), Tag("tbody"),
               Tag("td"), Tag("tfoot"), Tag("th"), Tag("thead"), Tag("tr")})) {
        return true;
    }
    if (IsEnd({Tag("template")})) return InHead();
    ByBodyWithFostering();
    return true;
}

/// A run of text is taken as a whole: with a word in it, its blanks leave the table too.
void HtmlTreeBuilder::TextInTable() {
    const TagName name = CurrentName();
    const bool is_table = name == Tag("table") || name == Tag("tbody") || name == Tag("tfoot") ||
                          name == Tag("thead") || name == Tag("tr") || name == Tag("template");
    const auto is_text = [&](std::int32_t at) {
        return at >= 0 && at < static_cast<std::int32_t>(tokens_.size()) &&
               (tokens_[at].kind == TokenKind::kWord || tokens_[at].kind == TokenKind::kBlank);
    };
    // Blanks and words take turns, so a run with a word has one at its start or behind that.
    const bool has_word = Is(TokenKind::kWord) ||
                          (is_text(index_ - 1) && tokens_[index_ - 1].kind == TokenKind::kWord) ||
                          (is_text(index_ + 1) && tokens_[index_ + 1].kind == TokenKind::kWord);
    if (is_table && !has_word) return InsertLeaf();
    ByBodyWithFostering();
}

void HtmlTreeBuilder::ByBodyWithFostering() {
    is_fostering_ = true;
    InBody();
    is_fostering_ = false;
}

bool HtmlTreeBuilder::StartInTable() {
    switch (token_->name) {
        case Tag("caption"):
            ClearStackTo({Tag("table")});
            formatting_.push_back(kMarker);
            InsertElement();
            mode_ = Mode::kInCaption;
            return true;
        case Tag("colgroup"):
            ClearStackTo({Tag("table")});
            InsertElement();
            mode_ = Mode::kInColumnGroup;
            return true;
        case Tag("col"):
            ClearStackTo({Tag("table")});
            InsertImplied(Tag("colgroup"));
            mode_ = Mode::kInColumnGroup;
            return false;
        case Tag("tbody"):
        case Tag("tfoot"):
        case Tag("thead"):
            ClearStackTo({Tag("table")});
            InsertElement();
            mode_ = Mode::kInTableBody;
            return true;
        case Tag("td"):
        case Tag("th"):
        case Tag("tr"):
            ClearStackTo({Tag("table")});
            InsertImplied(Tag("tbody"));
            mode_ = Mode::kInTableBody;
            return false;
        case Tag("table"):
            if (!HasInScope(Tag("table"), Scope::kTable)) return true;
            PopThrough(Tag("table"));
            ResetMode();
            return false;
        case Tag("style"):
        case Tag("script"):
        case Tag("template"):
            return InHead();
        case Tag("input"):
            for (const HtmlAttribute& attribute : AttributesOf(Source(index_))) {
                if (attribute.name != "type") continue;
                if (LowerAscii(attribute.value) != "hidden") break;
                InsertVoid();
                return true;
            }
            break;
        case Tag("form"):
            if (form_ != kNone) return true;
            form_ = InsertElement();
            Pop();
            return true;
        default:
            break;
    }
    ByBodyWithFostering();
    return true;
}

bool HtmlTreeBuilder::InTableBody() {
    const auto groups = {Tag("tbody"), Tag("tfoot"), Tag("thead")};
    if (IsStart({Tag("tr")})) {
        ClearStackTo(groups);
        InsertElement();
        mode_ = Mode::kInRow;
        return true;
    }
    if (IsStart({Tag("td"), Tag("th")})) {
        ClearStackTo(groups);
        InsertImplied(Tag("tr"));
        mode_ = Mode::kInRow;
        return false;
    }
    if (IsEnd(groups)) {
        if (!HasInScope(token_->name, Scope::kTable)) return true;
        ClearStackTo(groups);
        NoteEnd(Current());
        Pop();
        mode_ = Mode::kInTable;
        return true;
    }
    if (IsStart({Tag("caption"), Tag("col"), Tag("colgroup"), Tag("tbody"), Tag("tfoot"),
                 Tag("thead")}) ||
        IsEnd({Tag("table")})) {
        if (!HasInScope(Tag("tbody"), Scope::kTable) && !HasInScope(Tag("thead"), Scope::kTable) &&
            !HasInScope(Tag("tfoot"), Scope::kTable)) {
            return true;
        }
        ClearStackTo(groups);
        Pop();
        mode_ = Mode::kInTable;
        return false;
    }
    if (IsEnd({Tag("body"), Tag("caption"), Tag("col"), Tag("colgroup"), Tag("html"), Tag("td"),
               Tag("th"), Tag("tr")})) {
        return true;
    }
    return InTable();
}

bool HtmlTreeBuilder::CloseRow() {
    if (!HasInScope(Tag("tr"), Scope::kTable)) return false;
    ClearStackTo({Tag("tr")});
    if (token_->name == Tag("tr")) NoteEnd(Current());
    Pop();
    mode_ = Mode::kInTableBody;
    return true;
}

bool HtmlTreeBuilder::InRow() {
    if (IsStart({Tag("td"), Tag("th")})) {
        ClearStackTo({Tag("tr")});
        InsertElement();
        mode_ = Mode::kInCell;
        formatting_.push_back(kMarker);
        return true;
    }
    if (IsEnd({Tag("tr")})) {
        CloseRow();
        return true;
    }
    if (IsStart({Tag("caption"), Tag("col"), Tag("colgroup"), Tag("tbody"), Tag("tfoot"),
                 Tag("thead"), Tag("tr")}) ||
        IsEnd({Tag("table")})) {
        return !CloseRow();
    }
    if (IsEnd({Tag("tbody"), Tag("tfoot"), Tag("thead")})) {
        if (!HasInScope(token_->name, Scope::kTable)) return true;
        return !CloseRow();
    }
    if (IsEnd({Tag("body"), Tag("caption"), Tag("col"), Tag("colgroup"), Tag("html"), Tag("td"),
               Tag("th")})) {
        return true;
    }
    return InTable();
}

void HtmlTreeBuilder::CloseCell() {
    CloseImplied();
    while (stack_.size() > 1) {
        const TagName name = CurrentName();
        Pop();
        if (name == Tag("td") || name == Tag("th")) break;
    }
    ClearToMarker();
    mode_ = Mode::kInRow;
}

bool HtmlTreeBuilder::InCell() {
    if (IsEnd({Tag("td"), Tag("th")})) {
        if (!HasInScope(token_->name, Scope::kTable)) return true;
        CloseImplied();
        PopThrough(token_->name);
        ClearToMarker();
        mode_ = Mode::kInRow;
        return true;
    }
    if (IsStart({Tag("caption"), Tag("col"), Tag("colgroup"), Tag("tbody"), Tag("td"), Tag("tfoot"),
                 Tag("th"), Tag("thead"), Tag("tr")})) {
        CloseCell();
        return false;
    }
    if (IsEnd({Tag("body"), Tag("caption"), Tag("col"), Tag("colgroup"), Tag("html")})) {
        return true;
    }
    if (IsEnd({Tag("table"), Tag("tbody"), Tag("tfoot"), Tag("thead"), Tag("tr")})) {
        if (!HasInScope(token_->name, Scope::kTable)) return true;
        CloseCell();
        return false;
    }
    return InBody();
}

bool HtmlTreeBuilder::CloseCaption() {
    if (!HasInScope(Tag("caption"), Scope::kTable)) return false;
    CloseImplied();
    PopThrough(Tag("caption"));
    ClearToMarker();
    mode_ = Mode::kInTable;
    return true;
}

bool HtmlTreeBuilder::InCaption() {
    if (IsEnd({Tag("caption")})) {
        CloseCaption();
        return true;
    }
    if (IsStart({Tag("caption"), Tag("col"), Tag("colgroup"), Tag("tbody"), Tag("td"), Tag("tfoot"),
                 Tag("th"), Tag("thead"), Tag("tr")}) ||
        IsEnd({Tag("table")})) {
        return !CloseCaption();
    }
    if (IsEnd({Tag("body"), Tag("col"), Tag("colgroup"), Tag("html"), Tag("tbody"), Tag("td"),
               Tag("tfoot"), Tag("th"), Tag("thead"), Tag("tr")})) {
        return true;
    }
    return InBody();
}

bool HtmlTreeBuilder::InColumnGroup() {
    if (Is(TokenKind::kBlank) || Is(TokenKind::kComment)) {
        InsertLeaf();
        return true;
    }
    if (Is(TokenKind::kDoctype) || IsEnd({Tag("col")})) return true;
    if (IsStart({Tag("html")})) return InBody();
    if (IsStart({Tag("template")}) || IsEnd({Tag("template")})) return InHead();
    if (IsStart({Tag("col")})) {
        InsertVoid();
        return true;
    }
    if (!CurrentIs(Tag("colgroup"))) return true;
    const bool is_end = IsEnd({Tag("colgroup")});
    if (is_end) NoteEnd(Current());
    Pop();
    mode_ = Mode::kInTable;
    return is_end;
}

bool HtmlTreeBuilder::InSelect() {
    if (IsText() || Is(TokenKind::kComment)) {
        InsertLeaf();
        return true;
    }
    if (IsStart({Tag("html")})) return InBody();
    if (IsStart({Tag("script"), Tag("template")}) || IsEnd({Tag("template")})) return InHead();
    if (IsStart({Tag("option"), Tag("optgroup"), Tag("hr")})) {
        if (CurrentIs(Tag("option"))) Pop();
        if (token_->name != Tag("option") && CurrentIs(Tag("optgroup"))) Pop();
        if (token_->name == Tag("hr")) return true;
        InsertElement();
        return true;
    }
    if (IsEnd({Tag("optgroup")})) {
        const bool is_inside = CurrentIs(Tag("option")) && stack_.size() > 1 &&
                               IsHtml(stack_[stack_.size() - 2], Tag("optgroup"));
        if (is_inside) Pop();
    }
    if (IsEnd({Tag("optgroup"), Tag("option")})) {
        if (!CurrentIs(token_->name)) return true;
        NoteEnd(Current());
        Pop();
        return true;
    }
    const bool is_field = IsStart({Tag("input"), Tag("keygen"), Tag("textarea")});
    const bool is_end = IsEnd({Tag("select")}) || IsStart({Tag("select")});
    if (!is_end && !is_field) return true;
    if (!HasInScope(Tag("select"), Scope::kSelect)) return true;
    PopThrough(Tag("select"));
    ResetMode();
    return is_end;
}

bool HtmlTreeBuilder::InSelectInTable() {
    const auto parts = {Tag("caption"), Tag("table"), Tag("tbody"), Tag("tfoot"),
                        Tag("thead"),   Tag("tr"),    Tag("td"),    Tag("th")};
    const bool is_end = IsEnd(parts);
    if (!is_end && !IsStart(parts)) return InSelect();
    if (is_end && !HasInScope(token_->name, Scope::kTable)) return true;
    PopThrough(Tag("select"));
    ResetMode();
    return false;
}

void HtmlTreeBuilder::ResetMode() {
    mode_ = Mode::kInBody;
    for (std::size_t at = stack_.size(); at-- > 0;) {
        Spend(1);
        if (nodes_[stack_[at]].space != Space::kHtml) continue;
        switch (nodes_[stack_[at]].name) {
            case Tag("select"):
                mode_ = Mode::kInSelect;
                return;
            case Tag("td"):
            case Tag("th"):
                mode_ = Mode::kInCell;
                return;
            case Tag("tr"):
                mode_ = Mode::kInRow;
                return;
            case Tag("tbody"):
            case Tag("thead"):
            case Tag("tfoot"):
                mode_ = Mode::kInTableBody;
                return;
            case Tag("caption"):
                mode_ = Mode::kInCaption;
                return;
            case Tag("colgroup"):
                mode_ = Mode::kInColumnGroup;
                return;
            case Tag("table"):
                mode_ = Mode::kInTable;
                return;
            case Tag("template"):
            case Tag("body"):
                return;
            case Tag("head"):
                mode_ = Mode::kInHead;
                return;
            case Tag("html"):
                mode_ = head_ == kNone ? Mode::kBeforeHead : Mode::kAfterHead;
                return;
            default:
                break;
        }
    }
}

bool HtmlTreeBuilder::IsInForeignContent() const {
    if (stack_.empty() || nodes_[Current()].space == Space::kHtml) return false;
    const Node& current = nodes_[Current()];
    const TagName name = current.name;
    if (current.space == Space::kSvg) {
        return name != Tag("foreignobject") && name != Tag("desc") && name != Tag("title");
    }
    const bool is_text_point = name == Tag("mi") || name == Tag("mo") || name == Tag("mn") ||
                               name == Tag("ms") || name == Tag("mtext");
    return !is_text_point || (Is(TokenKind::kStart) && token_->name == Tag("mglyph"));
}

bool HtmlTreeBuilder::LeavesForeignContent() const {
    if (IsEnd({Tag("br"), Tag("p")})) return true;
    if (!Is(TokenKind::kStart)) return false;
    if (token_->name == Tag("font")) {
        const auto attributes = AttributesOf(Source(index_));
        return std::any_of(attributes.begin(), attributes.end(), [](const HtmlAttribute& it) {
            return it.name == "color" || it.name == "face" || it.name == "size";
        });
    }
    return IsStart({Tag("b"),      Tag("big"),    Tag("blockquote"), Tag("body"),  Tag("br"),
                    Tag("center"), Tag("code"),   Tag("dd"),         Tag("div"),   Tag("dl"),
                    Tag("dt"),     Tag("em"),     Tag("embed"),      Tag("h1"),    Tag("h2"),
                    Tag("h3"),     Tag("h4"),     Tag("h5"),         Tag("h6"),    Tag("head"),
                    Tag("hr"),     Tag("i"),      Tag("img"),        Tag("li"),    Tag("listing"),
                    Tag("menu"),   Tag("meta"),   Tag("nobr"),       Tag("ol"),    Tag("p"),
                    Tag("pre"),    Tag("ruby"),   Tag("s"),          Tag("small"), Tag("span"),
                    Tag("strong"), Tag("strike"), Tag("sub"),        Tag("sup"),   Tag("table"),
                    Tag("tt"),     Tag("u"),      Tag("ul"),         Tag("var")});
}

/// True if the token is done with.
bool HtmlTreeBuilder::Foreign() {
    if (IsText() || Is(TokenKind::kComment)) {
        InsertLeaf();
        return true;
    }
    if (Is(TokenKind::kDoctype)) return true;
    if (LeavesForeignContent()) {
        while (IsInForeignContent()) Pop();
        return false;
    }
    if (Is(TokenKind::kStart)) {
        InsertElement(nodes_[Current()].space);
        if (token_->is_self_closing) Pop();
        return true;
    }
    for (std::size_t at = stack_.size(); at-- > 1;) {
        Spend(1);
        const NodeId node = stack_[at];
        if (nodes_[node].space == Space::kHtml) return false;
        if (nodes_[node].name != token_->name) continue;
        NoteEnd(node);
        PopThroughNode(node);
        return true;
    }
    return true;
}

}  // namespace quorrel::html
