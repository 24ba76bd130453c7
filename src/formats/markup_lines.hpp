// The tags, comments and texts of a markup file as a lenient reader sees them, line by line, beside
// the line scanners: what stands there is compared with what these take.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>
#include <vector>

namespace quorrel {

/// A piece of markup on one line.
struct Markup {
    enum class Kind {
        kTag,      // "<name ...>"
        kEndTag,   // "</name>"
        kComment,  // the part of one that is on this line
        kOther,    // a declaration or an instruction
        kText,     // other than blanks
    };
    Kind kind = Kind::kText;
    bool is_first_part = true;     // of a piece that begins on this line
    bool is_whole = true;          // it ends on this line, too
    std::string_view name = {};    // of a tag, as written
    std::string_view inside = {};  // behind the name of a tag; all of a comment or a text
    std::size_t begin = 0;         // offsets on the line
    std::size_t end = 0;
};

/// What a tag says of one attribute; the value without its quotes, as written.
struct MarkupAttribute {
    std::string_view name;
    std::string_view value;
};
/// Takes the next attribute off the inside of a tag. A quote that is not closed ends with the tag.
[[nodiscard]] std::optional<MarkupAttribute> TakeAttribute(std::string_view& inside);

class MarkupLines {
  public:
    /// The pieces of the next line, valid until the next call.
    const std::vector<Markup>& Take(std::string_view line);
    /// Whether a comment of the line taken last covers this offset.
    [[nodiscard]] bool IsCommentedOut(std::size_t offset) const;

  private:
    /// Takes the piece at `at`, which goes on from the line before if `open` says so; gives the
    /// offset behind it.
    std::size_t TakePiece(std::string_view line, std::size_t at);
    std::size_t TakeUpTo(std::string_view line, std::size_t at, std::string_view mark,
                         Markup piece);
    std::size_t TakeTag(std::string_view line, std::size_t at);

    std::vector<Markup> pieces_;
    bool is_open_ = false;  // the last piece goes on
    Markup::Kind open_kind_ = Markup::Kind::kText;
    std::string_view open_mark_;  // what ends it
};

}  // namespace quorrel
