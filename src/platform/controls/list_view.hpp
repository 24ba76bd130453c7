// The report list: rows of a text and sub-items, kept sorted by one column, with look-ups by
// the content of a cell.
#pragma once

#include <cstddef>
#include <memory>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/controls/cell_index.hpp"
#include "platform/controls/control.hpp"

namespace quorrel {

class ListView;

/// One row. It is made by ListView::Add and stays at its address until it is removed.
class ListRow {
  public:
    ListRow(const ListRow&) = delete;
    ListRow& operator=(const ListRow&) = delete;

    [[nodiscard]] const std::string& Text() const { return Cells()[0]; }
    /// `column` from 1 on. A column that the table lacks raises 9.
    [[nodiscard]] const std::string& SubItems(int column) const;
    void SetText(std::string text) { SetCell(0, std::move(text)); }
    void SetSubItem(int column, std::string text) { SetCell(column, std::move(text)); }
    /// Appends to a sub-item in place.
    void AppendToSubItem(int column, std::string_view text);
    /// The text for column 0, else the sub-item; the column must exist.
    [[nodiscard]] const std::string& Cell(int column) const {
        return Cells()[static_cast<std::size_t>(column)];
    }

  private:
    friend class ListView;
    struct Deleter {
        void operator()(ListRow* row) const;
    };
    using Pointer = std::unique_ptr<ListRow, Deleter>;

    /// The cells stand behind the row in one piece of memory.
    static Pointer Make(ListView& table, std::size_t number, int cells);
    ListRow(ListView& table, std::size_t number, int cells)
        : table_(table), number_(number), cell_count_(cells) {}
    ~ListRow() = default;
    [[nodiscard]] std::string* Cells() { return reinterpret_cast<std::string*>(this + 1); }
    [[nodiscard]] const std::string* Cells() const {
        return reinterpret_cast<const std::string*>(this + 1);
    }
    void SetCell(int column, std::string text);
    /// Raises 9 where there is no such cell.
    std::string& CheckedCell(int column, int first);

    ListView& table_;
    std::size_t number_;  // counts the additions; orders rows with equal keys
    int position_ = 0;    // 1-based, valid while the table's positions are
    int cell_count_;
    bool pending_ = true;  // not yet at its place in the order
};

/// A column as the user sees it; a width of 0 hides it.
struct ListColumn {
    std::string header;
    int width = 0;  // twips
};

/// Rows are numbered from 1 in the order of the sort column: by the upper-cased texts, compared
/// by code point; equal ones stay in the order of their addition. A number is valid until the
/// next addition, removal or change of a sort cell.
class ListView : public Control {
  public:
    static constexpr int kUnsorted = -1;

    /// `cells` counts the text and the sub-items. `sort_column` 0 is the text.
    explicit ListView(int cells, int sort_column = kUnsorted);
    ~ListView();

    std::vector<ListColumn> columns;
    /// Rows came, went or moved.
    Signal<> rows_changed;
    /// The content of one row changed.
    Signal<ListRow&> row_changed;

    ListRow& Add(std::string text);
    [[nodiscard]] int Count() const { return static_cast<int>(rows_.size()); }
    /// Raises 35600 outside 1 to Count.
    [[nodiscard]] ListRow& At(int position);
    [[nodiscard]] const ListRow& At(int position) const;
    [[nodiscard]] int PositionOf(const ListRow& row) const;
    void Remove(int position);
    void Clear();

    [[nodiscard]] int SortColumn() const { return sort_column_; }
    void SortBy(int column);

    /// The selected row, or null.
    [[nodiscard]] ListRow* SelectedItem() const { return selected_; }
    void Select(ListRow* row);

    /// The first or last row, in table order, whose cell equals `key` without regard to case;
    /// null where there is none. The cost does not grow with the table, but for an empty key.
    [[nodiscard]] ListRow* FirstWith(int column, std::string_view key) const;
    [[nodiscard]] ListRow* LastWith(int column, std::string_view key) const;
    /// The same, compared exactly.
    [[nodiscard]] ListRow* FirstWithExactly(int column, std::string_view key) const;
    [[nodiscard]] ListRow* LastWithExactly(int column, std::string_view key) const;

  private:
    friend class ListRow;

    [[nodiscard]] bool Before(const ListRow& a, const ListRow& b) const;
    void EnsureOrder() const;
    void SortWaitingRows() const;
    void EnsurePositions() const;
    void DropPositions() const;
    [[nodiscard]] const CellIndex& IndexOf(int column) const;
    [[nodiscard]] const CellIndex::Group* GroupOf(int column, std::string_view key) const;
    const CellIndex::Several& Ordered(const CellIndex::Group& group) const;
    enum class End { kFirst, kLast };
    [[nodiscard]] ListRow* EmptyAt(int column, End end) const;
    [[nodiscard]] ListRow* ExactlyAt(int column, std::string_view key, End end) const;
    void Unplace(ListRow& row);
    void BeforeCellChange(ListRow& row, int column);
    void AfterCellChange(ListRow& row, int column);

    int cells_;
    int sort_column_;
    std::size_t additions_ = 0;
    ListRow* selected_ = nullptr;

    // The order is made when it is asked for: a reader that adds ten thousand rows pays for one
    // sort, not for ten thousand insertions.
    mutable std::vector<ListRow::Pointer> rows_;  // placed rows first, in order
    mutable std::size_t placed_ = 0;              // the rest wait for their place
    mutable bool positions_valid_ = false;
    mutable int searches_ = 0;  // since the positions went
    mutable std::size_t order_version_ = 1;
    mutable std::vector<std::unique_ptr<CellIndex>> indexes_;  // by column, made on first use
};

}  // namespace quorrel
