#include "editor/source_colors.hpp"

#include <algorithm>

namespace quorrel {
namespace {

using Place = SourceState::Place;
using Content = SourceState::Content;
using Server = SourceState::Server;

/// The longest reference by name has 31 letters; anything longer is a stray "&".
constexpr std::size_t kLongestEntity = 34;

bool IsBlank(char16_t c) {
    return c == u' ' || c == u'\t' || c == u'\f' || c == u'\r' || c == u'\n' || c == u'\u2028';
}
bool IsLetter(char16_t c) {
    return (c >= u'a' && c <= u'z') || (c >= u'A' && c <= u'Z');
}
bool IsLetterOrDigit(char16_t c) {
    return IsLetter(c) || (c >= u'0' && c <= u'9');
}

class Tokenizer {
  public:
    Tokenizer(std::u16string_view line, SourceState state, std::vector<SourceTokenSpan>& tokens)
        : line_(line), state_(state), tokens_(tokens) {}

    SourceState Run() {
        while (at_ < line_.size()) Step();
        return state_;
    }

  private:
    void Step() {
        if (state_.server != Server::kNone) return TakeServerScript();
        if (BeginsServerScript()) return;
        switch (state_.place) {
            case Place::kText:
                return TakeText();
            case Place::kTag:
                return TakeInTag();
            case Place::kValue:
                return TakeQuotedValue();
            case Place::kComment:
                return TakeComment(at_, SourceToken::kBlockComment);
            case Place::kDeclaration:
                return TakeDeclaration();
            case Place::kScript:
                return TakeRaw(u"</script", SourceToken::kScript);
            case Place::kStyle:
                return TakeRaw(u"</style", SourceToken::kStyle);
        }
    }

    // ---- server scripts, which may interrupt anything but a comment ----

    /// The kind of server script that begins at `at`.
    [[nodiscard]] Server ServerScriptAt(std::size_t at) const {
        if (HasAt(at, u"<%")) return Server::kPercent;
        const bool is_php = HasAt(at, u"<?php") || HasAt(at, u"<?=") || HasAt(at, u"<? ");
        return is_php || line_.substr(at) == u"<?" ? Server::kQuestion : Server::kNone;
    }

    bool BeginsServerScript() {
        if (state_.place == Place::kComment || line_[at_] != u'<') return false;
        state_.server = ServerScriptAt(at_);
        if (state_.server == Server::kNone) return false;
        state_.value_next = false;  // it is the value
        TakeServerScript(2);
        return true;
    }

    void TakeServerScript(std::size_t opening = 0) {
        const auto* end = state_.server == Server::kPercent ? u"%>" : u"?>";
        const std::size_t found = line_.find(end, at_ + opening);
        if (found != line_.npos) state_.server = Server::kNone;
        Emit(found == line_.npos ? line_.size() : found + 2, SourceToken::kServerScript);
    }

    /// Where the first of `stops` or server script is, from `from` on; the end where there is none.
    /// `stops` has a "<" in it, at which a server script may begin.
    [[nodiscard]] std::size_t FindStop(std::size_t from, std::u16string_view stops) const {
        std::size_t at = line_.find_first_of(stops, from);
        while (at != line_.npos && line_[at] == u'<' && ServerScriptAt(at) == Server::kNone) {
            at = line_.find_first_of(stops, at + 1);
        }
        return std::min(at, line_.size());
    }
    /// Moves `end` behind `mark` if that is what stands there.
    bool Passes(std::size_t& end, char16_t mark) const {
        if (end >= line_.size() || line_[end] != mark) return false;
        ++end;
        return true;
    }

    // ---- text ----

    void TakeText() {
        if (line_[at_] == u'<' && BeginsMarkup()) return;
        if (line_[at_] == u'&') return TakeEntity();
        at_ = std::min(line_.find_first_of(u"<&", at_ + 1), line_.size());
    }

    bool BeginsMarkup() {
        const char16_t next = at_ + 1 < line_.size() ? line_[at_ + 1] : u' ';
        if (HasAt(at_, u"<!--")) {
            BeginComment();
        } else if (next == u'!' || next == u'?') {
            state_.place = Place::kDeclaration;
            TakeDeclaration();
        } else if (IsLetter(next) || (next == u'/' && IsLetterAt(at_ + 2))) {
            BeginTag();
        } else {
            return false;
        }
        return true;
    }

    void TakeEntity() {
        std::size_t end = at_ + 1;
        if (end < line_.size() && line_[end] == u'#') ++end;
        const std::size_t limit = std::min(line_.size(), at_ + kLongestEntity);
        while (end < limit && IsLetterOrDigit(line_[end])) ++end;
        const bool is_whole = end < line_.size() && line_[end] == u';' && end > at_ + 1;
        if (!is_whole) {
            ++at_;
            return;
        }
        Emit(end + 1, SourceToken::kEntity);
    }

    // ---- comments and declarations ----

    void BeginComment() {
        // "<!-->" and "<!--->" are whole comments.
        const std::size_t content = at_ + 4;
        for (const std::u16string_view end : {u">", u"->"}) {
            if (HasAt(content, end)) return Emit(content + end.size(), SourceToken::kLineComment);
        }
        TakeComment(content, SourceToken::kLineComment);
    }

    /// `token` is for a comment that ends in this line.
    void TakeComment(std::size_t content, SourceToken token) {
        for (std::size_t at = line_.find(u"--", content); at != line_.npos;
             at = line_.find(u"--", at + 1)) {
            std::size_t end = at + 2;
            if (HasAt(end, u"!>")) ++end;
            if (!Passes(end, u'>')) continue;
            state_.place = Place::kText;
            return Emit(end, token);
        }
        state_.place = Place::kComment;
        Emit(line_.size(), SourceToken::kBlockComment);
    }

    void TakeDeclaration() {
        std::size_t end = FindStop(at_ + (line_[at_] == u'<' ? 1 : 0), u"<>");
        if (Passes(end, u'>')) state_.place = Place::kText;
        Emit(end, SourceToken::kDeclaration);
    }

    // ---- tags ----

    void BeginTag() {
        std::size_t end = at_ + 1;
        while (end < line_.size() && !IsBlank(line_[end]) && line_[end] != u'>' &&
               !(line_[end] == u'/' && end > at_ + 1)) {
            ++end;
        }
        state_.place = Place::kTag;
        state_.value_next = false;
        const std::u16string_view tag = line_.substr(at_, end - at_);
        state_.content = Equals(tag, u"<script")  ? Content::kScript
                         : Equals(tag, u"<style") ? Content::kStyle
                                                  : Content::kText;
        Emit(end, SourceToken::kTag);
    }

    void TakeInTag() {
        const char16_t c = line_[at_];
        if (IsBlank(c)) {
            ++at_;
        } else if (c == u'>') {
            EndTag();
        } else if (state_.value_next) {
            TakeValue();
        } else if (c == u'=') {
            state_.value_next = true;
            Emit(at_ + 1, SourceToken::kTag);
        } else if (c == u'/') {
            // The ">" of "/>" closes the tag by itself; the two look the same.
            Emit(at_ + 1, SourceToken::kTag);
        } else {
            Emit(FindStop(at_ + 1, u"< \t\f\u2028>/="), SourceToken::kAttributeName);
        }
    }

    void EndTag() {
        state_.value_next = false;
        state_.place = state_.content == Content::kScript  ? Place::kScript
                       : state_.content == Content::kStyle ? Place::kStyle
                                                           : Place::kText;
        state_.content = Content::kText;
        Emit(at_ + 1, SourceToken::kTag);
    }

    void TakeValue() {
        state_.value_next = false;
        const char16_t c = line_[at_];
        if (c == u'"' || c == u'\'') {
            state_.place = Place::kValue;
            state_.single_quote = c == u'\'';
            return TakeQuotedValue(1);
        }
        Emit(FindStop(at_ + 1, u"< \t\f\u2028>"), SourceToken::kAttributeValue);
    }

    void TakeQuotedValue(std::size_t opening = 0) {
        const char16_t quote = state_.single_quote ? u'\'' : u'"';
        const char16_t stops[] = {u'<', quote};
        std::size_t end = FindStop(at_ + opening, {stops, 2});
        if (Passes(end, quote)) {
            state_.place = Place::kTag;
            state_.single_quote = false;
        }
        Emit(end, SourceToken::kAttributeValue);
    }

    /// The content of an element that holds no markup, up to `end_tag`.
    void TakeRaw(std::u16string_view end_tag, SourceToken token) {
        if (HasAt(at_, end_tag)) return BeginTag();
        std::size_t end = at_ + 1;
        while (end < line_.size() && !HasAt(end, end_tag) && ServerScriptAt(end) == Server::kNone) {
            end = std::min(line_.find(u'<', end + 1), line_.size());
        }
        Emit(end, token);
    }

    // ---- helpers ----

    [[nodiscard]] bool IsLetterAt(std::size_t at) const {
        return at < line_.size() && IsLetter(line_[at]);
    }

    /// Whether `text` is `lower`, which is in lower case.
    static bool Equals(std::u16string_view text, std::u16string_view lower) {
        return std::equal(text.begin(), text.end(), lower.begin(), lower.end(),
                          [](char16_t c, char16_t expected) {
                              return c == expected ||
                                     (c >= u'A' && c <= u'Z' && c + 32 == expected);
                          });
    }
    [[nodiscard]] bool HasAt(std::size_t at, std::u16string_view lower) const {
        return at < line_.size() && Equals(line_.substr(at, lower.size()), lower);
    }

    void Emit(std::size_t end, SourceToken token) {
        if (end > at_) tokens_.push_back({at_, end - at_, token});
        at_ = end;
    }

    std::u16string_view line_;
    SourceState state_;
    std::vector<SourceTokenSpan>& tokens_;
    std::size_t at_ = 0;
};

}  // namespace

TokenColor SourceTokenColor(int code) {
    switch (static_cast<SourceToken>(code)) {
        case SourceToken::kLineComment:
        case SourceToken::kBlockComment:
            return {0, 128, 0};
        case SourceToken::kText:
            return {0, 0, 0};
        default:
            return {0, 0, 255};
    }
}

int SourceState::Packed() const {
    return static_cast<int>(place) | static_cast<int>(content) << 3 |
           static_cast<int>(single_quote) << 5 | static_cast<int>(value_next) << 6 |
           static_cast<int>(server) << 7;
}

SourceState SourceState::Unpacked(int packed) {
    if (packed < 0) return {};
    SourceState state;
    state.place = static_cast<Place>(packed & 7);
    state.content = static_cast<Content>(packed >> 3 & 3);
    state.single_quote = (packed >> 5 & 1) != 0;
    state.value_next = (packed >> 6 & 1) != 0;
    state.server = static_cast<Server>(packed >> 7 & 3);
    return state;
}

SourceState TokenizeSourceLine(std::u16string_view line, SourceState state,
                               std::vector<SourceTokenSpan>& tokens) {
    return Tokenizer(line, state, tokens).Run();
}

}  // namespace quorrel
