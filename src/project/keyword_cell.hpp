// The keywords cell of a topic row: full keys, each closed by ";".
#pragma once

#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/controls/list_view.hpp"

namespace quorrel {

/// Adds keys to the cells of a table's rows while a file is read. A key goes into a cell only if
/// its text does not stand there already, even as a part of another key.
///
/// A topic to which a whole index leads has a long cell. There the windows of eight bytes that
/// occur in the cell are remembered by their hash, and a key with a window that never occurred
/// needs no search. The cells must not be changed otherwise while this is in use.
class KeywordCells {
  public:
    void Append(ListRow& topic, std::string_view key);

  private:
    class Windows {
      public:
        /// Takes in the windows of `cell` behind those taken before.
        void Extend(std::string_view cell);
        /// False only if `key` stands nowhere in the text taken in.
        [[nodiscard]] bool MayContain(std::string_view key) const;

      private:
        static constexpr std::size_t kSize = 8;
        static std::size_t SlotOf(const char* window);
        std::vector<bool> seen_;
        std::size_t taken_ = 0;
    };

    std::unordered_map<const ListRow*, Windows> long_cells_;
};

}  // namespace quorrel
