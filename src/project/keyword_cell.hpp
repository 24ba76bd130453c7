// The keywords cell of a topic row: full keys, each closed by ";".
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/controls/list_view.hpp"
#include "platform/growing_text_index.hpp"
#include "platform/text_budget.hpp"

namespace quorrel {

/// The keys of a cell, as they stand there; what follows the last ";" is none.
[[nodiscard]] std::vector<std::string> KeysOfCell(std::string_view cell);

/// Adds keys to the cells of a table's rows while a file is read. A key goes into a cell only if
/// its text does not stand there already, even as a part of another key.
///
/// A topic to which a whole index leads has a long cell, which gets an index of its text. The cells
/// must not be changed otherwise while this is in use.
class KeywordCells {
  public:
    /// The keys added count against `budget`; those beyond it are left out.
    explicit KeywordCells(TextBudget& budget) : budget_(budget) {}
    void Append(ListRow& topic, std::string_view key);

  private:
    /// Whether `key` stands somewhere in the topic's cell.
    [[nodiscard]] bool Stands(const ListRow& topic, std::string_view cell, std::string_view key);

    TextBudget& budget_;
    std::unordered_map<const ListRow*, GrowingTextIndex> long_cells_;
};

}  // namespace quorrel
