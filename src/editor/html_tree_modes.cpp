// The insertion modes around the body.
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

}  // namespace quorrel::html
