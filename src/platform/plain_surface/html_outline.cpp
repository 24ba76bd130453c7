#include "platform/plain_surface/html_outline.hpp"

#include <algorithm>

#include "platform/text.hpp"

namespace quorrel {
namespace {

constexpr std::string_view kVoid =
    "AREA BASE BASEFONT BGSOUND BR COL EMBED FRAME HR IMG INPUT ISINDEX LINK META PARAM SOURCE "
    "SPACER TRACK WBR";
constexpr std::string_view kHeadElements = "HTML HEAD TITLE META LINK BASE SCRIPT STYLE";
constexpr std::string_view kTableParts = "TD TH TR TBODY THEAD TFOOT CAPTION COLGROUP TABLE";
constexpr std::string_view kCells = "TD TH CAPTION";
constexpr std::string_view kFences = "TABLE OBJECT APPLET BUTTON";

/// A start tag ends an open element of these names, up to the next element that is `within`.
struct ImpliedEnd {
    std::string_view start_tags;
    std::string_view ends;
    std::string_view within;
};
constexpr ImpliedEnd kImpliedEnds[] = {
    {"LI", "LI", "UL OL DIR MENU"},
    {"DT DD", "DT DD", "DL"},
    {"OPTION", "OPTION", "SELECT"},
    {"TD TH", "TD TH", "TR"},
    {"TR", "TR", ""},
    {"TBODY THEAD TFOOT", "TBODY THEAD TFOOT", ""},
    {"A", "A", ""},
    {"BODY", "HEAD", ""},
    {"P DIV H1 H2 H3 H4 H5 H6 UL OL DL DIR MENU PRE ADDRESS BLOCKQUOTE CENTER FORM FIELDSET HR",
     "P", ""},
};

/// How far up an end tag looks for its element. Documents do not go so deep, and hostile
/// nesting costs no more than linear time.
constexpr std::size_t kReach = 128;

bool IsEndTag(const HtmlToken& token, std::string_view name) {
    return token.kind == HtmlTokenKind::kEndTag && token.name == name;
}

class OutlineBuilder {
  public:
    explicit OutlineBuilder(const std::vector<HtmlToken>& tokens)
        : last_body_end_(LastEndTag(tokens, "BODY")), last_html_end_(LastEndTag(tokens, "HTML")) {}

    std::vector<HtmlElement> Run(const std::vector<HtmlToken>& tokens) {
        for (const HtmlToken& token : tokens) {
            if (token.kind == HtmlTokenKind::kStartTag) Start(token);
            if (token.kind == HtmlTokenKind::kEndTag) End(token);
        }
        CloseFrom(0, tokens.empty() ? 0 : tokens.back().end);
        return std::move(elements_);
    }

  private:
    struct Open {
        int element = 0;
        bool is_cell = false;
        bool is_fence = false;
    };

    static std::size_t LastEndTag(const std::vector<HtmlToken>& tokens, std::string_view name) {
        const auto last = std::find_if(tokens.rbegin(), tokens.rend(),
                                       [&](const HtmlToken& t) { return IsEndTag(t, name); });
        return last == tokens.rend() ? npos : last->begin;
    }

    [[nodiscard]] const std::string& NameOf(const Open& open) const {
        return elements_[static_cast<std::size_t>(open.element)].name;
    }

    /// The place in the stack of the innermost open element with one of the names, or npos. What
    /// is no part of a table does not look out of its cell.
    [[nodiscard]] std::size_t FindOpen(std::string_view names, std::string_view within,
                                       bool passes_cells) const {
        const std::size_t end = stack_.size() > kReach ? stack_.size() - kReach : 0;
        for (std::size_t i = stack_.size(); i-- > end;) {
            if (HasWord(names, NameOf(stack_[i]))) return i;
            if (stack_[i].is_fence || (stack_[i].is_cell && !passes_cells)) return npos;
            if (!within.empty() && HasWord(within, NameOf(stack_[i]))) return npos;
        }
        return npos;
    }

    void Start(const HtmlToken& token) {
        const std::string& name = token.name;
        if ((name == "BODY" && has_body_) || (name == "HTML" && !elements_.empty())) return;
        has_body_ = has_body_ || name == "BODY";
        for (const ImpliedEnd& implied : kImpliedEnds) {
            if (!HasWord(implied.start_tags, name)) continue;
            const std::size_t open =
                FindOpen(implied.ends, implied.within, HasWord(kTableParts, name));
            if (open != npos) CloseFrom(open, token.begin);
        }
        const bool is_void = HasWord(kVoid, name);
        const int parent = stack_.empty() ? -1 : stack_.back().element;
        elements_.push_back({name, token.begin, token.end, token.end, token.end, parent, is_void});
        if (is_void) return;
        const int index = static_cast<int>(elements_.size()) - 1;
        stack_.push_back({index, HasWord(kCells, name), HasWord(kFences, name)});
    }

    void End(const HtmlToken& token) {
        const bool is_body = token.name == "BODY";
        std::size_t open = npos;
        if (is_body || token.name == "HTML") {
            if (token.begin != (is_body ? last_body_end_ : last_html_end_)) return;
            const auto found = std::find_if(stack_.begin(), stack_.end(),
                                            [&](const Open& o) { return NameOf(o) == token.name; });
            if (found != stack_.end()) open = static_cast<std::size_t>(found - stack_.begin());
        } else {
            open = FindOpen(token.name, {}, HasWord(kTableParts, token.name));
        }
        if (open == npos) return;
        CloseFrom(open + 1, token.begin);
        HtmlElement& element = elements_[static_cast<std::size_t>(stack_.back().element)];
        element.close_begin = token.begin;
        element.close_end = token.end;
        stack_.pop_back();
    }

    /// Ends the open elements from this place of the stack on, without end tags.
    void CloseFrom(std::size_t open, std::size_t offset) {
        for (std::size_t i = open; i < stack_.size(); ++i) {
            HtmlElement& element = elements_[static_cast<std::size_t>(stack_[i].element)];
            element.close_begin = element.close_end = offset;
        }
        stack_.resize(std::min(open, stack_.size()));
    }

    std::vector<HtmlElement> elements_;
    std::vector<Open> stack_;
    // Only the last one counts, what stands behind another belongs to the body.
    std::size_t last_body_end_;
    std::size_t last_html_end_;
    bool has_body_ = false;
};

bool IsBlank(std::string_view text) {
    return std::all_of(text.begin(), text.end(), IsHtmlBlank);
}

/// The body of a source without a body tag: what stands between the head and the end tags.
HtmlElement ImpliedBody(std::string_view html, const std::vector<HtmlToken>& tokens) {
    std::size_t begin = 0;
    auto token = tokens.begin();
    for (; token != tokens.end(); ++token) {
        const std::string_view source = html.substr(token->begin, token->end - token->begin);
        if (token->kind == HtmlTokenKind::kText && IsBlank(source)) continue;
        if (IsEndTag(*token, "HTML")) break;
        const bool is_head = token->kind == HtmlTokenKind::kInert ||
                             (token->IsTag() && HasWord(kHeadElements, token->name));
        if (!is_head) break;
        begin = token->end;
    }
    std::size_t end = html.size();
    for (; token != tokens.end(); ++token) {
        if (IsEndTag(*token, "HTML") || IsEndTag(*token, "BODY")) end = token->begin;
        if (IsEndTag(*token, "BODY")) break;
    }
    return {"BODY", begin, begin, end, end, -1, false};
}

}  // namespace

HtmlOutline::HtmlOutline(std::string_view html) : tokens_(ScanHtml(html)) {
    elements_ = OutlineBuilder(tokens_).Run(tokens_);
    const auto body = std::find_if(elements_.begin(), elements_.end(),
                                   [](const HtmlElement& e) { return e.name == "BODY"; });
    if (body == elements_.end()) {
        body_ = ImpliedBody(html, tokens_);
    } else {
        body_ = *body;
        body_index_ = static_cast<int>(body - elements_.begin());
    }
}

int HtmlOutline::ElementAt(std::size_t offset) const {
    const auto found = std::partition_point(
        elements_.begin(), elements_.end(),
        [&](const HtmlElement& element) { return element.open_begin < offset; });
    if (found == elements_.end() || found->open_begin != offset) return -1;
    return static_cast<int>(found - elements_.begin());
}

int HtmlOutline::ElementAround(std::size_t from, std::size_t to) const {
    const auto behind =
        std::partition_point(elements_.begin(), elements_.end(),
                             [&](const HtmlElement& element) { return element.open_end <= from; });
    int index = static_cast<int>(behind - elements_.begin()) - 1;
    while (index >= 0) {
        const HtmlElement& element = elements_[static_cast<std::size_t>(index)];
        if (!element.is_void && element.close_begin >= to) return index;
        index = element.parent;
    }
    return -1;
}

const HtmlToken* HtmlOutline::TokenOver(std::size_t offset) const {
    const auto behind =
        std::partition_point(tokens_.begin(), tokens_.end(),
                             [&](const HtmlToken& token) { return token.begin < offset; });
    if (behind == tokens_.begin()) return nullptr;
    const HtmlToken& token = *std::prev(behind);
    return offset < token.end ? &token : nullptr;
}

}  // namespace quorrel
