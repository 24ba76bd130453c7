#include "platform/plain_surface/body_text.hpp"

#include <algorithm>

#include "platform/plain_surface/html_entities.hpp"
#include "platform/text.hpp"
#include "platform/unicode.hpp"

namespace quorrel {
namespace {

constexpr char32_t kLineBreak = '\n';
constexpr char32_t kObject = 0xFFFC;
constexpr char32_t kNoBreakSpace = 0xA0;

constexpr std::string_view kBlocks =
    "P DIV H1 H2 H3 H4 H5 H6 UL OL LI DL DT DD DIR MENU TABLE TR TD TH TBODY THEAD TFOOT CAPTION "
    "PRE LISTING ADDRESS BLOCKQUOTE CENTER FORM FIELDSET";
constexpr std::string_view kObjectTags = "IMG INPUT EMBED TEXTAREA IFRAME";
constexpr std::string_view kObjectElements = "OBJECT APPLET SELECT BUTTON";

/// Makes texts equal for a search: by their case, and any blank is a blank.
char32_t Folded(char32_t code, bool match_case) {
    if (code == kNoBreakSpace) return ' ';
    return match_case ? code : UpperCodePoint(code);
}

bool IsWordCharacter(char32_t code) {
    if (code < 0x80) {
        const char upper = UpperAscii(static_cast<char>(code));
        return (upper >= 'A' && upper <= 'Z') || (upper >= '0' && upper <= '9') || upper == '_';
    }
    const bool is_sign = code < 0xC0 || code == 0xD7 || code == 0xF7 || code == kObject ||
                         (code >= 0x2000 && code < 0x2C00) || (code >= 0x3000 && code < 0x3040);
    return !is_sign;
}

std::vector<char32_t> Decoded(std::string_view text) {
    std::vector<char32_t> codes;
    for (std::size_t at = 0; at < text.size();) {
        const char32_t code = NextCodePoint(text, at);
        if (code != '\r') codes.push_back(code);
    }
    return codes;
}

}  // namespace

class BodyTextBuilder {
  public:
    BodyTextBuilder(std::string_view html, const HtmlOutline& outline, BodyText& result)
        : html_(html), outline_(outline), result_(result) {}

    void Run() {
        const HtmlElement& body = outline_.Body();
        result_.start_ = body.open_end;
        std::size_t passed = body.open_end;
        for (const HtmlToken& token : outline_.Tokens()) {
            if (token.begin < passed) continue;
            if (token.begin >= body.close_begin) break;
            if (token.kind == HtmlTokenKind::kText) Text(token);
            if (token.IsTag()) passed = Tag(token);
        }
        // The end of the last block is no character, an empty block behind it is.
        if (break_ && break_has_start_) Flush();
    }

  private:
    /// Gives the offset up to which the source is told.
    std::size_t Tag(const HtmlToken& token) {
        const bool is_start = token.kind == HtmlTokenKind::kStartTag;
        if (token.name == "PRE" || token.name == "LISTING") {
            pre_depth_ = is_start ? pre_depth_ + 1 : std::max(pre_depth_ - 1, 0);
        }
        if (HasWord(kBlocks, token.name)) {
            Block(token);
        } else if (!is_start) {
            return token.end;
        } else if (token.name == "BR" || token.name == "HR") {
            Add({token.begin, token.end, kLineBreak});
        } else if (HasWord(kObjectTags, token.name)) {
            Add({token.begin, token.end, kObject});
        } else if (HasWord(kObjectElements, token.name)) {
            return Object(token);
        }
        return token.end;
    }

    std::size_t Object(const HtmlToken& token) {
        const int index = outline_.ElementAt(token.begin);
        if (index < 0) return token.end;
        const std::size_t end = outline_.Elements()[static_cast<std::size_t>(index)].close_end;
        Add({token.begin, end, kObject});
        return end;
    }

    /// End tags and the start tags behind them are one break; an end tag behind a start tag ends
    /// an empty block, which is a place of its own.
    void Block(const HtmlToken& token) {
        const bool is_start = token.kind == HtmlTokenKind::kStartTag;
        if (break_ && break_has_start_ && !is_start) Flush();
        if (!break_) break_ = SourceStretch{token.begin, token.end};
        break_->to = token.end;
        break_has_start_ = break_has_start_ || is_start;
    }

    void Flush() {
        if (!break_) return;
        if (started_) {
            result_.characters_.push_back({break_->from, break_->to, kLineBreak});
        } else {
            result_.start_ = break_->to;
        }
        started_ = true;
        break_.reset();
        break_has_start_ = false;
    }

    void Add(const BodyText::Character& character) {
        Flush();
        started_ = true;
        result_.characters_.push_back(character);
    }

    void Text(const HtmlToken& token) {
        for (std::size_t at = token.begin; at < token.end;) {
            at = IsHtmlBlank(html_[at]) ? Blank(at, token.end) : Letter(at, token.end);
        }
    }

    std::size_t Letter(std::size_t at, std::size_t limit) {
        const std::string_view text = html_.substr(0, limit);
        std::size_t end = at;
        char32_t code = 0;
        if (const auto entity = EntityAt(text, at)) {
            end = entity->end;
            code = entity->code;
        } else {
            code = NextCodePoint(text, end);
        }
        Add({at, end, code});
        return end;
    }

    std::size_t Blank(std::size_t at, std::size_t limit) {
        if (pre_depth_ > 0) {
            const bool is_pair = html_.substr(at, limit - at).starts_with("\r\n");
            const bool ends_line = html_[at] == '\n' || html_[at] == '\r';
            const std::size_t end = at + (is_pair ? 2 : 1);
            Add({at, end, ends_line ? kLineBreak : static_cast<char32_t>(html_[at])});
            return end;
        }
        std::size_t end = at;
        while (end < limit && IsHtmlBlank(html_[end])) ++end;
        const bool at_start = break_.has_value() || result_.characters_.empty();
        const bool behind_blank = !at_start && (result_.characters_.back().code == ' ' ||
                                                result_.characters_.back().code == kLineBreak);
        if (!at_start && !behind_blank) Add({at, end, ' '});
        return end;
    }

    std::string_view html_;
    const HtmlOutline& outline_;
    BodyText& result_;
    std::optional<SourceStretch> break_;
    bool break_has_start_ = false;
    bool started_ = false;
    int pre_depth_ = 0;
};

BodyText::BodyText(std::string_view html, const HtmlOutline& outline) {
    BodyTextBuilder(html, outline, *this).Run();
}

std::size_t BodyText::CharactersBefore(std::size_t offset) const {
    const auto found = std::partition_point(characters_.begin(), characters_.end(),
                                            [&](const Character& c) { return c.end <= offset; });
    return static_cast<std::size_t>(found - characters_.begin());
}

std::size_t BodyText::CharactersBegunBefore(std::size_t offset) const {
    const std::size_t n = CharactersBefore(offset);
    const bool in_blanks =
        n < Count() && characters_[n].begin < offset && characters_[n].code == ' ';
    return in_blanks ? n + 1 : n;
}

std::size_t BodyText::PlaceBehind(std::size_t n) const {
    return n == 0 ? start_ : characters_[std::min(n, Count()) - 1].end;
}

std::size_t BodyText::PlaceBefore(std::size_t n) const {
    return n < Count() ? characters_[n].begin : PlaceBehind(n);
}

std::size_t BodyText::CharacterStart(std::size_t offset) const {
    const std::size_t n = CharactersBefore(offset);
    if (n == Count() || characters_[n].begin >= offset) return offset;
    const bool is_stretch = characters_[n].code == ' ' || characters_[n].code == kLineBreak;
    return is_stretch ? offset : characters_[n].begin;
}

std::string BodyText::Text(std::size_t from, std::size_t to) const {
    std::string text;
    for (std::size_t n = CharactersBefore(from); n < Count() && characters_[n].begin < to; ++n) {
        const Character& c = characters_[n];
        if (c.code == kObject) continue;
        if (c.code != kLineBreak) {
            AppendUtf8(text, c.code);
        } else if (c.begin >= from && c.end <= to) {
            text += kLineEnd;
        }
    }
    return text;
}

bool BodyText::IsWord(std::size_t first, std::size_t size) const {
    const std::size_t behind = first + size;
    const bool begins = first == 0 || !IsWordCharacter(characters_[first - 1].code);
    return begins && (behind == Count() || !IsWordCharacter(characters_[behind].code));
}

std::optional<SourceStretch> BodyText::Find(const Search& search, std::size_t first,
                                            std::size_t last) const {
    const std::vector<char32_t> wanted = Decoded(search.text);
    last = std::min(last, Count());
    if (wanted.empty() || first >= last || last - first < wanted.size()) return std::nullopt;
    const auto at = [&](std::size_t n) {
        return characters_.begin() + static_cast<std::ptrdiff_t>(n);
    };
    const auto equal = [&](const Character& c, char32_t code) {
        return Folded(c.code, search.match_case) == Folded(code, search.match_case);
    };
    while (first < last) {
        const auto found =
            search.upwards ? std::find_end(at(first), at(last), wanted.begin(), wanted.end(), equal)
                           : std::search(at(first), at(last), wanted.begin(), wanted.end(), equal);
        if (found == at(last)) return std::nullopt;
        const auto n = static_cast<std::size_t>(found - characters_.begin());
        const std::size_t behind = n + wanted.size();
        if (!search.whole_words || IsWord(n, wanted.size())) {
            return SourceStretch{characters_[n].begin, characters_[behind - 1].end};
        }
        if (search.upwards) {
            last = behind - 1;
        } else {
            first = n + 1;
        }
    }
    return std::nullopt;
}

}  // namespace quorrel
