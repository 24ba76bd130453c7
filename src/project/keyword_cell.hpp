// The keywords cell of a topic row: full keys, each closed by ";".
#pragma once

#include <array>
#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/controls/list_view.hpp"
#include "platform/text_budget.hpp"

namespace quorrel {

/// Adds keys to the cells of a table's rows while a file is read. A key goes into a cell only if
/// its text does not stand there already, even as a part of another key.
///
/// A topic to which a whole index leads has a long cell. There the stretches of eight bytes (for
/// a shorter key: of its length) that occur in the cell are remembered by their hash, and a key
/// with a stretch that never occurred needs no search. The cells must not be changed otherwise
/// while this is in use.
class KeywordCells {
  public:
    /// The keys added count against `budget`; those beyond it are left out.
    explicit KeywordCells(TextBudget& budget) : budget_(budget) {}
    void Append(ListRow& topic, std::string_view key);

  private:
    static constexpr std::size_t kLongestStretch = 8;

    /// The stretches of one length that occur in a growing text.
    class Stretches {
      public:
        /// Takes in those of `cell` behind the ones taken before.
        void Extend(std::string_view cell, std::size_t length);
        /// False only if `key` stands nowhere in the text taken in.
        [[nodiscard]] bool MayContain(std::string_view key, std::size_t length) const;

      private:
        std::vector<bool> seen_;
        std::size_t taken_ = 0;
    };
    using LongCell = std::array<Stretches, kLongestStretch + 1>;  // by length

    TextBudget& budget_;
    std::unordered_map<const ListRow*, LongCell> long_cells_;
};

}  // namespace quorrel
