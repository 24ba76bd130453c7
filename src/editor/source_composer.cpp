#include "editor/source_composer.hpp"

#include <algorithm>
#include <numeric>

#include "editor/document_tokens.hpp"
#include "platform/text.hpp"

namespace quorrel::html {
namespace {

using Action = EditStep::Action;

/// An element that gets lines of its own when it is new.
bool HasOwnLine(TagName name) {
    switch (name) {
        case Tag("br"):
        case Tag("option"):
        case Tag("td"):
        case Tag("th"):
            return false;
        default:
            return IsBlockTag(name);
    }
}

/// One whose end tag stands on a line of its own behind such elements.
bool HasOwnEndLine(TagName name) {
    return IsOneOf(name, {Tag("blockquote"), Tag("dl"), Tag("ol"), Tag("table"), Tag("tbody"),
                          Tag("tfoot"), Tag("thead"), Tag("ul")});
}

}  // namespace

std::string SourceComposer::Compose(const std::vector<EditStep>& steps) {
    result_.reserve(source_.text.size() + 4096);
    FindDisplaced(steps);
    const std::vector<std::size_t> order = OrderOf(steps);
    std::vector<std::size_t> next_kept(steps.size() + 1, source_.tokens.size());
    for (std::size_t at = steps.size(); at-- > 0;) {
        const EditStep& step = steps[order[at]];
        const bool is_kept = step.first >= 0 && !IsNew(step);
        next_kept[at] = is_kept ? static_cast<std::size_t>(step.first) : next_kept[at + 1];
    }
    for (std::size_t at = 0; at < steps.size(); ++at) {
        const EditStep& step = steps[order[at]];
        const HtmlToken& token = edited_.tokens[order[at]];
        const bool keeps_blanks = token.name != 0 && KeepsBlanks(token.name);
        if (keeps_blanks && token.kind == TokenKind::kEnd) --keeps_blanks_;
        next_kept_ = next_kept[at + 1];
        if (IsNew(step)) {
            if (step.first >= 0) CopyUpTo(static_cast<std::size_t>(step.first), false);
            const bool has_layout = step.action == Action::kNew && keeps_blanks_ == 0;
            WriteNew(order[at], has_layout);
            const bool is_last =
                at + 1 == steps.size() || steps[order[at + 1]].action != Action::kNew;
            if (has_layout && is_last) EndRun(order[at]);
        } else {
            Keep(order[at], step);
        }
        if (keeps_blanks && token.kind == TokenKind::kStart) ++keeps_blanks_;
    }
    CopyUpTo(source_.tokens.size(), !steps.empty() && steps.back().is_explicit);
    return std::move(result_);
}

/// The order in which the tokens are written. The engine makes bold what is selected with the
/// line end in front of it; at the edge of a block it means nothing, and the tag goes beside the
/// word.
std::vector<std::size_t> SourceComposer::OrderOf(const std::vector<EditStep>& steps) const {
    std::vector<std::size_t> order(steps.size());
    std::iota(order.begin(), order.end(), std::size_t{0});
    const auto is_new = [&](std::size_t at, TokenKind kind) {
        const HtmlToken& token = edited_.tokens[order[at]];
        return steps[order[at]].action == Action::kNew && token.kind == kind &&
               IsInlineTag(token.name);
    };
    const auto is_kept_blank = [&](std::size_t at) {
        return steps[order[at]].action == Action::kKeep &&
               edited_.tokens[order[at]].kind == TokenKind::kBlank;
    };
    std::vector<bool> edges;
    const auto is_at_edge = [&](std::size_t at) {
        if (edges.empty()) edges = BlockEdges(AsDocument(edited_.tokens));
        return edges[order[at]];
    };
    for (std::size_t at = 1; at < order.size(); ++at) {
        if (!is_kept_blank(at) || !is_new(at - 1, TokenKind::kStart) || !is_at_edge(at)) continue;
        for (std::size_t to = at; to > 0 && is_new(to - 1, TokenKind::kStart); --to) {
            std::swap(order[to], order[to - 1]);
        }
    }
    for (std::size_t at = order.size(); at-- > 1;) {
        if (!is_kept_blank(at - 1) || !is_new(at, TokenKind::kEnd) || !is_at_edge(at - 1)) continue;
        for (std::size_t to = at; to < order.size() && is_new(to, TokenKind::kEnd); ++to) {
            std::swap(order[to], order[to - 1]);
        }
    }
    return order;
}

void SourceComposer::Append(std::string_view text) {
    const std::size_t line_end = text.find_last_of("\r\n");
    if (line_end != npos) line_start_ = result_.size() + line_end + 1;
    result_ += text;
}

void SourceComposer::CopyUpTo(std::size_t token, bool is_explicit) {
    for (; at_ < token; ++at_) {
        const bool is_blank = source_.tokens[at_].kind == TokenKind::kBlank;
        if (!is_deleted_[at_] && (is_blank || !is_explicit)) CopyLeftOut(at_);
    }
}

void SourceComposer::CopyLeftOut(std::size_t token) {
    const auto found = displaced_.find(token);
    if (found == displaced_.end()) return Append(source_.Of(token));
    if (found->second < 0) return;
    const auto edited = static_cast<std::size_t>(found->second);
    Append(PatchedWord(source_.Of(token), edited_.Of(edited)));
}

void SourceComposer::FindDisplaced(const std::vector<EditStep>& steps) {
    for (std::size_t at = 0; at < steps.size(); ++at) {
        const EditStep& step = steps[at];
        if (step.displaced < 0) continue;
        const bool is_patched =
            step.action == Action::kPatch && edited_.tokens[at].kind == TokenKind::kWord;
        const bool is_written = step.is_explicit || (step.action == Action::kPatch && !is_patched);
        if (is_written || is_patched) {
            displaced_[static_cast<std::size_t>(step.displaced)] =
                is_written ? -1 : static_cast<std::ptrdiff_t>(at);
        }
    }
}

void SourceComposer::Keep(std::size_t token, const EditStep& step) {
    const bool is_patched = step.action == Action::kPatch;
    if (step.first < 0) {
        const bool is_elsewhere =
            step.displaced >= 0 && edited_.tokens[token].kind == TokenKind::kWord;
        if (step.is_explicit || (is_patched && !is_elsewhere)) Append(TextOf(token));
        return;
    }
    CopyUpTo(static_cast<std::size_t>(step.first), step.is_explicit);
    const std::size_t begin = source_.tokens[at_].begin;
    const std::string_view text = source_.text.substr(begin, source_.tokens[step.last].end - begin);
    at_ = static_cast<std::size_t>(step.last) + 1;
    if (!is_patched) {
        // A comment that does not end would swallow what comes behind it.
        const bool is_open =
            edited_.tokens[token].kind == TokenKind::kComment && !text.ends_with('>');
        return is_open && step.is_explicit ? Append(TextOf(token)) : Append(text);
    }
    if (source_.tokens[step.first].kind != edited_.tokens[token].kind) return Append(TextOf(token));
    const bool is_word = edited_.tokens[token].kind == TokenKind::kWord;
    Append(is_word ? PatchedWord(text, edited_.Of(token))
                   : PatchedTag(text, WithLineEnds(edited_.Of(token), style_.line_end)));
}

std::string SourceComposer::TextOf(std::size_t token) {
    switch (edited_.tokens[token].kind) {
        case TokenKind::kStart:
        case TokenKind::kEnd:
            return NewTag(edited_.Of(token), style_);
        case TokenKind::kComment:
            return CommentOf(token);
        default:
            return WithLineEnds(edited_.Of(token), style_.line_end);
    }
}

/// A copy of a declaration is written as the one that the source has.
std::string SourceComposer::CommentOf(std::size_t token) {
    if (!knows_declarations_) {
        knows_declarations_ = true;
        for (std::size_t at = 0; at < source_.tokens.size(); ++at) {
            const std::string_view text = source_.Of(at);
            if (source_.tokens[at].kind != TokenKind::kComment || text.starts_with("<!--"))
                continue;
            const std::string data = ReplaceAll(CommentData(text), "\r\n", "\n");
            if (text.ends_with('>')) declarations_.emplace(ReplaceAll(data, "\r", "\n"), text);
        }
    }
    const auto found = declarations_.find(CommentData(edited_.Of(token)));
    if (found != declarations_.end()) return std::string(found->second);
    return WithLineEnds(NewComment(edited_.Of(token)), style_.line_end);
}

void SourceComposer::WriteNew(std::size_t token, bool has_layout) {
    const HtmlToken& it = edited_.tokens[token];
    if (has_layout && it.kind == TokenKind::kStart && HasOwnLine(it.name)) BreakLine();
    const bool ends_group = token > 0 && it.kind == TokenKind::kEnd && HasOwnEndLine(it.name);
    if (has_layout && ends_group) {
        const HtmlToken& before = edited_.tokens[token - 1];
        if (before.kind == TokenKind::kEnd && IsBlockTag(before.name)) BreakLine();
    }
    if (IsLineFeedToDouble(token)) Append(style_.line_end);
    Append(TextOf(token));
}

/// A browser passes over the first line feed in these elements.
bool SourceComposer::IsLineFeedToDouble(std::size_t token) const {
    if (token == 0 || !edited_.Of(token).starts_with('\n')) return false;
    if (!PassesOverLineFeed(edited_.tokens[token - 1])) return false;
    const bool is_there = at_ < next_kept_ && source_.tokens[at_].kind == TokenKind::kBlank;
    return !is_there;
}

bool SourceComposer::IsAtLineStart() const {
    const std::string_view line = std::string_view(result_).substr(line_start_);
    return std::all_of(line.begin(), line.end(), IsHtmlBlank);
}

std::string SourceComposer::Indent() const {
    constexpr std::size_t kDeepest = 100;
    const std::string_view line = std::string_view(result_).substr(line_start_);
    const std::size_t size = std::min(line.find_first_not_of(" \t"), line.size());
    return size > kDeepest ? std::string() : std::string(line.substr(0, size));
}

void SourceComposer::BreakLine() {
    if (!style_.has_lines || IsAtLineStart()) return;
    Append(std::string(style_.line_end) + Indent());
}

/// Behind a run of new tokens that ends with a block.
void SourceComposer::EndRun(std::size_t last_token) {
    const HtmlToken& last = edited_.tokens[last_token];
    const bool ends_block = last.kind == TokenKind::kEnd && HasOwnLine(last.name);
    const bool is_rule = last.kind == TokenKind::kStart && last.name == Tag("hr");
    if ((ends_block || is_rule) && !LineEndFollows()) BreakLine();
}

bool SourceComposer::LineEndFollows() const {
    std::size_t at = at_;
    while (at < source_.tokens.size() && is_deleted_[at]) ++at;
    if (at == source_.tokens.size()) return true;
    const bool is_blank = source_.tokens[at].kind == TokenKind::kBlank;
    return is_blank && source_.Of(at).find_first_of("\r\n") != npos;
}

}  // namespace quorrel::html
