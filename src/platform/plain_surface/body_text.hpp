// The characters of a document's body, as one who reads it counts them.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/plain_surface/html_outline.hpp"

namespace quorrel {

/// A stretch of the source, in bytes.
struct SourceStretch {
    std::size_t from = 0;
    std::size_t to = 0;
};

/// A character is a code point or an entity of the text, a run of blanks (outside PRE), a line
/// break, an object (a graphic, a field, a whole OBJECT), or the way from one block to the next.
/// Blanks at a block's start are none, nor is what stands before the first block's text.
class BodyText {
  public:
    BodyText(std::string_view html, const HtmlOutline& outline);

    [[nodiscard]] std::size_t Count() const { return characters_.size(); }
    /// The characters that end at or before the offset.
    [[nodiscard]] std::size_t CharactersBefore(std::size_t offset) const;
    /// As CharactersBefore, with the run of blanks that `offset` stands in.
    [[nodiscard]] std::size_t CharactersBegunBefore(std::size_t offset) const;
    /// Where character `n` ends; the text's start for 0.
    [[nodiscard]] std::size_t PlaceBehind(std::size_t n) const;
    /// Where the character behind `n` others begins; the last one's end for Count.
    [[nodiscard]] std::size_t PlaceBefore(std::size_t n) const;
    /// The start of the character other than a run of blanks that has `offset` inside, else
    /// `offset`.
    [[nodiscard]] std::size_t CharacterStart(std::size_t offset) const;

    /// The text in the stretch. Objects give nothing, the end of a line CR LF.
    [[nodiscard]] std::string Text(std::size_t from, std::size_t to) const;

    struct Search {
        std::string_view text;
        bool whole_words = false;
        bool match_case = false;
        bool upwards = false;
    };
    /// The first hit, or when searching upwards the last, among the characters behind `first`
    /// others and up to `last`. An empty text is found nowhere.
    [[nodiscard]] std::optional<SourceStretch> Find(const Search& search, std::size_t first,
                                                    std::size_t last) const;

  private:
    friend class BodyTextBuilder;
    struct Character {
        std::size_t begin = 0;
        std::size_t end = 0;
        char32_t code = 0;
    };
    [[nodiscard]] bool IsWord(std::size_t first, std::size_t size) const;

    std::vector<Character> characters_;
    std::size_t start_ = 0;
};

}  // namespace quorrel
