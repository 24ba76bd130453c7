#include "formats/markup_lines.hpp"

#include <algorithm>

#include "platform/text.hpp"

namespace quorrel {
namespace {

constexpr std::string_view kBlanks = " \t\f\v";

bool IsNameStart(char c) {
    const char upper = UpperAscii(c);
    return (upper >= 'A' && upper <= 'Z') || c == '_' || static_cast<unsigned char>(c) >= 0x80;
}

/// The offset behind the tag that begins at `at`, or npos where it does not end on the line.
std::size_t EndOfTag(std::string_view line, std::size_t at) {
    char quote = 0;
    for (std::size_t i = at; i < line.size(); ++i) {
        if (quote != 0) {
            if (line[i] == quote) quote = 0;
        } else if (line[i] == '>') {
            return i + 1;
        } else if ((line[i] == '"' || line[i] == '\'') && line[i - 1] == '=') {
            quote = line[i];
        }
    }
    // With a quote that is not closed the tag ends all the same.
    const std::size_t end = line.find('>', at);
    return end == npos ? npos : end + 1;
}

}  // namespace

std::optional<MarkupAttribute> TakeAttribute(std::string_view& inside) {
    const auto drop = [&](std::size_t count) {
        inside.remove_prefix(std::min(count, inside.size()));
    };
    drop(inside.find_first_not_of(" \t\f\v/"));
    if (inside.empty()) return std::nullopt;
    MarkupAttribute attribute{inside.substr(0, inside.find_first_of(" \t\f\v/=", 1)), {}};
    drop(attribute.name.size());
    const std::size_t equals = inside.find_first_not_of(kBlanks);
    if (equals == npos || inside[equals] != '=') return attribute;
    drop(equals + 1);
    drop(inside.find_first_not_of(kBlanks));
    const bool is_quoted = inside.starts_with('"') || inside.starts_with('\'');
    const std::size_t end =
        is_quoted ? inside.find(inside.front(), 1) : inside.find_first_of(kBlanks);
    attribute.value = inside.substr(0, end);
    if (is_quoted) attribute.value.remove_prefix(1);
    drop(end == npos ? npos : end + 1);
    return attribute;
}

const std::vector<Markup>& MarkupLines::Take(std::string_view line) {
    pieces_.clear();
    std::size_t at = 0;
    if (is_open_) {
        Markup rest{open_kind_, false};
        at = TakeUpTo(line, 0, open_mark_, rest);
    }
    while (at < line.size()) at = TakePiece(line, at);
    return pieces_;
}

bool MarkupLines::IsCommentedOut(std::size_t offset) const {
    return std::any_of(pieces_.begin(), pieces_.end(), [&](const Markup& piece) {
        return piece.kind == Markup::Kind::kComment && piece.begin <= offset && offset < piece.end;
    });
}

std::size_t MarkupLines::TakePiece(std::string_view line, std::size_t at) {
    const std::string_view rest = line.substr(at);
    if (rest.starts_with("<!--")) {
        return TakeUpTo(line, at, "-->", {Markup::Kind::kComment});
    }
    if (rest.starts_with("<?")) return TakeUpTo(line, at, "?>", {Markup::Kind::kOther});
    if (rest.starts_with("<!")) return TakeUpTo(line, at, ">", {Markup::Kind::kOther});
    const bool is_end_tag = rest.starts_with("</");
    const std::size_t name = is_end_tag ? 2 : 1;
    if (rest.starts_with('<') && rest.size() > name && IsNameStart(rest[name])) {
        return TakeTag(line, at);
    }
    const std::size_t end = std::min(line.find('<', at + 1), line.size());
    const std::string_view text = line.substr(at, end - at);
    if (!TrimBlanksAndTabs(text).empty()) {
        pieces_.push_back({Markup::Kind::kText, true, true, {}, text, at, end});
    }
    return end;
}

std::size_t MarkupLines::TakeUpTo(std::string_view line, std::size_t at, std::string_view mark,
                                  Markup piece) {
    const std::size_t found = line.find(mark, at);
    is_open_ = found == npos;
    open_kind_ = piece.kind;
    open_mark_ = mark;
    piece.is_whole = !is_open_;
    piece.begin = at;
    piece.end = is_open_ ? line.size() : found + mark.size();
    piece.inside = line.substr(at, piece.end - at);
    pieces_.push_back(piece);
    return piece.end;
}

std::size_t MarkupLines::TakeTag(std::string_view line, std::size_t at) {
    const bool is_end_tag = line[at + 1] == '/';
    const std::size_t name = at + (is_end_tag ? 2 : 1);
    Markup tag{is_end_tag ? Markup::Kind::kEndTag : Markup::Kind::kTag};
    const std::size_t end = EndOfTag(line, name);
    if (end == npos) {
        is_open_ = true;
        open_kind_ = tag.kind;
        open_mark_ = ">";
    }
    tag.is_whole = end != npos;
    tag.begin = at;
    tag.end = std::min(end, line.size());
    const std::string_view all = line.substr(name, tag.end - name - (tag.is_whole ? 1 : 0));
    tag.name = all.substr(0, all.find_first_of(" \t\f\v/"));
    tag.inside = all.substr(tag.name.size());
    pieces_.push_back(tag);
    return tag.end;
}

}  // namespace quorrel
