// Counts what a line scanner could not take of an XML file that has items on lines of their own.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "formats/markup_lines.hpp"
#include "platform/left_behind.hpp"
#include "platform/text.hpp"

namespace quorrel {

/// What a reader did with one line.
struct ItemTaken {
    std::size_t place = npos;       // of the tag whose attributes it took; npos for none
    std::optional<int> level = {};  // at which the item is written, from 1; nothing where it is not
    bool is_kept = true;            // each attribute that it knows is written again
};

class ItemTally {
  public:
    /// `attributes` are those that the reader takes, `noun` names the items in the plural. Items
    /// below level `deepest` have no place in the file that is written.
    ItemTally(std::string_view element, std::initializer_list<std::string_view> attributes,
              std::string_view noun, int deepest)
        : element_(element), attributes_(attributes), noun_(noun), deepest_(deepest) {}

    void TakeLine(std::string_view line, const ItemTaken& taken);
    [[nodiscard]] std::vector<LeftBehind> Findings() const;

  private:
    void TakeItem(const Markup& tag, const ItemTaken& taken);
    void TakeLevel(int level);
    void CountAttributes(const Markup& tag);

    std::string_view element_;
    std::vector<std::string_view> attributes_;
    std::string noun_;
    int deepest_;
    MarkupLines markup_;
    int depth_ = 0;               // of open items
    bool may_have_text_ = false;  // an item without the attribute has it behind its tag
    bool is_in_item_ = false;     // its tag goes on with the next line
    LossCount items_;
    int moved_ = 0;
    int too_deep_ = 0;
    int revived_ = 0;
    int other_attributes_ = 0;
    int others_ = 0;
};

/// A comment that the program writes itself: it says nothing of the author's.
[[nodiscard]] bool IsOwnComment(std::string_view comment);

}  // namespace quorrel
