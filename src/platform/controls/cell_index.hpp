// Finds the rows of a report list by the content of one cell.
#pragma once

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>
#include <vector>

namespace quorrel {

class ListRow;

/// A hash table with open addressing: tables of a hundred thousand rows are looked through
/// hundreds of thousands of times while a project is opened, and each step that leaves the table
/// for another place in memory counts. Case is ignored; empty cells are not kept.
class CellIndex {
  public:
    /// The rows that share a key: mostly one.
    struct Several {
        std::vector<ListRow*> rows;
        // The outer two in table order, valid for the order of this version.
        ListRow* first = nullptr;
        ListRow* last = nullptr;
        std::size_t order_version = 0;
    };
    struct Group {
        ListRow* only = nullptr;
        std::unique_ptr<Several> several;  // in place of `only`
    };

    explicit CellIndex(int column) : column_(column) {}

    void Reserve(std::size_t rows);
    void Add(ListRow& row);
    /// `row` still has the content that it was added with.
    void Remove(const ListRow& row);
    /// Null where no row has the key.
    [[nodiscard]] const Group* Find(std::string_view key) const;

  private:
    // Eight bytes, so that the table of a large project stays in the processor's cache.
    struct Slot {
        std::uint32_t hash = 0;
        std::uint32_t group = kFree;  // number in groups_
    };
    static constexpr std::uint32_t kFree = 0xFFFFFFFF;

    [[nodiscard]] const ListRow& AnyRowOf(const Slot& slot) const;
    /// The slot of the key, or the free one where it would go.
    [[nodiscard]] std::size_t Place(std::string_view key, std::uint32_t hash) const;
    void Resize(std::size_t slots);
    void Free(std::size_t place);

    int column_;
    std::vector<Slot> slots_;  // a power of two of them
    std::vector<Group> groups_;
    std::vector<std::uint32_t> unused_groups_;
};

}  // namespace quorrel
