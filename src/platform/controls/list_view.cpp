#include "platform/controls/list_view.hpp"

#include <algorithm>
#include <array>
#include <cstdint>
#include <memory>
#include <new>
#include <utility>

#include "platform/failure.hpp"
#include "platform/text.hpp"
#include "platform/unicode.hpp"

namespace quorrel {

ListRow::Pointer ListRow::Make(ListView& table, std::size_t number, int cells) {
    static_assert(alignof(ListRow) % alignof(std::string) == 0);
    const auto count = static_cast<std::size_t>(cells);
    void* memory = ::operator new(sizeof(ListRow) + count * sizeof(std::string));
    auto* row = new (memory) ListRow(table, number, cells);
    std::uninitialized_default_construct_n(row->Cells(), count);
    return Pointer(row);
}

void ListRow::Deleter::operator()(ListRow* row) const {
    std::destroy_n(row->Cells(), row->cell_count_);
    row->~ListRow();
    ::operator delete(row);
}

std::string& ListRow::CheckedCell(int column, int first) {
    if (column < first || column >= cell_count_) {
        throw RuntimeError(run_time_error::kSubscriptOutOfRange);
    }
    return Cells()[column];
}

const std::string& ListRow::SubItems(int column) const {
    return const_cast<ListRow*>(this)->CheckedCell(column, 1);
}

void ListRow::SetCell(int column, std::string text) {
    std::string& cell = CheckedCell(column, 0);
    if (cell == text) return;
    table_.BeforeCellChange(*this, column);
    cell = std::move(text);
    table_.AfterCellChange(*this, column);
}

void ListRow::AppendToSubItem(int column, std::string_view text) {
    std::string& cell = CheckedCell(column, 1);
    if (text.empty()) return;
    table_.BeforeCellChange(*this, column);
    cell.append(text);
    table_.AfterCellChange(*this, column);
}

ListView::ListView(int cells, int sort_column)
    : cells_(cells), sort_column_(sort_column), indexes_(static_cast<std::size_t>(cells)) {}

ListView::~ListView() = default;

ListRow& ListView::Add(std::string text) {
    rows_.push_back(ListRow::Make(*this, ++additions_, cells_));
    ListRow& row = *rows_.back();
    row.Cells()[0] = std::move(text);
    DropPositions();
    for (int column = 0; column < cells_; ++column) {
        auto& index = indexes_[static_cast<std::size_t>(column)];
        if (index != nullptr) index->Add(row);
    }
    rows_changed.Emit();
    return row;
}

bool ListView::Before(const ListRow& a, const ListRow& b) const {
    if (sort_column_ != kUnsorted) {
        const int order = CompareIgnoringCase(a.Cell(sort_column_), b.Cell(sort_column_));
        if (order != 0) return order < 0;
    }
    return a.number_ < b.number_;
}

namespace {

/// The beginning of an upper-cased text as numbers, for comparisons that look at no row: rows lie
/// far apart in the memory of a large project.
using SortPrefix = std::array<std::uint64_t, 3>;

SortPrefix PrefixOf(std::string_view text) {
    constexpr std::size_t kBytes = sizeof(SortPrefix);
    const std::string upper = UpperUnicode(FirstCharacters(text, kBytes));
    SortPrefix prefix{};
    for (std::size_t i = 0; i < kBytes && i < upper.size(); ++i) {
        const std::uint64_t byte = static_cast<unsigned char>(upper[i]);
        prefix[i / 8] |= byte << (56 - i % 8 * 8);
    }
    return prefix;
}

}  // namespace

void ListView::SortWaitingRows() const {
    struct Entry {
        SortPrefix prefix;
        ListRow* row;
    };
    std::vector<Entry> entries;
    entries.reserve(rows_.size() - placed_);
    for (std::size_t i = placed_; i < rows_.size(); ++i) {
        ListRow* row = rows_[i].release();
        entries.push_back(
            {sort_column_ == kUnsorted ? SortPrefix{} : PrefixOf(row->Cell(sort_column_)), row});
    }
    std::sort(entries.begin(), entries.end(), [this](const Entry& a, const Entry& b) {
        return a.prefix != b.prefix ? a.prefix < b.prefix : Before(*a.row, *b.row);
    });
    for (std::size_t i = 0; i < entries.size(); ++i) rows_[placed_ + i].reset(entries[i].row);
}

void ListView::EnsureOrder() const {
    if (placed_ == rows_.size()) return;
    const auto before = [this](const ListRow::Pointer& a, const ListRow::Pointer& b) {
        return Before(*a, *b);
    };
    const auto middle = rows_.begin() + static_cast<std::ptrdiff_t>(placed_);
    if (!std::is_sorted(middle, rows_.end(), before)) SortWaitingRows();
    // The usual case of a reader: the new rows follow the old ones.
    if (placed_ != 0 && before(*middle, *(middle - 1))) {
        std::inplace_merge(rows_.begin(), middle, rows_.end(), before);
    }
    for (std::size_t i = 0; i < rows_.size(); ++i) rows_[i]->pending_ = false;
    placed_ = rows_.size();
    DropPositions();
    ++order_version_;
}

void ListView::EnsurePositions() const {
    EnsureOrder();
    if (positions_valid_) return;
    for (std::size_t i = 0; i < rows_.size(); ++i) rows_[i]->position_ = static_cast<int>(i) + 1;
    positions_valid_ = true;
}

void ListView::DropPositions() const {
    positions_valid_ = false;
    searches_ = 0;
}

const ListRow& ListView::At(int position) const {
    if (position < 1 || position > Count()) throw RuntimeError(run_time_error::kIndexOutOfBounds);
    EnsureOrder();
    return *rows_[static_cast<std::size_t>(position - 1)];
}

ListRow& ListView::At(int position) {
    return const_cast<ListRow&>(std::as_const(*this).At(position));
}

int ListView::PositionOf(const ListRow& row) const {
    EnsureOrder();
    // A few rows between two changes are searched; numbering all for them would make a long series
    // of changes grow with the square of the table.
    constexpr int kMostSearches = 64;
    if (!positions_valid_ && searches_ < kMostSearches) {
        ++searches_;
        const auto found = std::lower_bound(
            rows_.begin(), rows_.end(), row,
            [this](const ListRow::Pointer& a, const ListRow& b) { return Before(*a, b); });
        return static_cast<int>(found - rows_.begin()) + 1;
    }
    EnsurePositions();
    return row.position_;
}

void ListView::Remove(int position) {
    ListRow& row = At(position);
    for (int column = 0; column < cells_; ++column) {
        auto& index = indexes_[static_cast<std::size_t>(column)];
        if (index != nullptr) index->Remove(row);
    }
    if (selected_ == &row) Select(nullptr);
    rows_.erase(rows_.begin() + (position - 1));
    placed_ = rows_.size();
    DropPositions();
    ++order_version_;
    rows_changed.Emit();
}

void ListView::Clear() {
    Select(nullptr);
    rows_.clear();
    placed_ = 0;
    DropPositions();
    ++order_version_;
    for (auto& index : indexes_) index.reset();
    rows_changed.Emit();
}

void ListView::SortBy(int column) {
    if (column == sort_column_) return;
    sort_column_ = column;
    placed_ = 0;
    for (const auto& row : rows_) row->pending_ = true;
    DropPositions();
    ++order_version_;
    rows_changed.Emit();
}

void ListView::Select(ListRow* row) {
    if (row == selected_) return;
    selected_ = row;
    changed.Emit();
}

/// Takes a placed row out of the order; it goes to the rows that wait for their place.
void ListView::Unplace(ListRow& row) {
    if (row.pending_) return;
    const auto at = rows_.begin() + (PositionOf(row) - 1);
    std::rotate(at, at + 1, rows_.end());
    row.pending_ = true;
    placed_ = rows_.size() - 1;
    DropPositions();
}

void ListView::BeforeCellChange(ListRow& row, int column) {
    auto& index = indexes_[static_cast<std::size_t>(column)];
    if (index != nullptr) index->Remove(row);
    if (column == sort_column_) Unplace(row);
}

void ListView::AfterCellChange(ListRow& row, int column) {
    auto& index = indexes_[static_cast<std::size_t>(column)];
    if (index != nullptr) index->Add(row);
    if (column == sort_column_) {
        ++order_version_;
        rows_changed.Emit();
    } else {
        row_changed.Emit(row);
    }
}

const CellIndex& ListView::IndexOf(int column) const {
    auto& index = indexes_.at(static_cast<std::size_t>(column));
    if (index == nullptr) {
        index = std::make_unique<CellIndex>(column);
        index->Reserve(rows_.size());
        for (const auto& row : rows_) index->Add(*row);
    }
    return *index;
}

const CellIndex::Group* ListView::GroupOf(int column, std::string_view key) const {
    EnsureOrder();
    return IndexOf(column).Find(key);
}

const CellIndex::Several& ListView::Ordered(const CellIndex::Group& group) const {
    CellIndex::Several& several = *group.several;
    if (several.order_version != order_version_) {
        const auto before = [this](const ListRow* a, const ListRow* b) { return Before(*a, *b); };
        const auto [first, last] =
            std::minmax_element(several.rows.begin(), several.rows.end(), before);
        several.first = *first;
        several.last = *last;
        several.order_version = order_version_;
    }
    return several;
}

ListRow* ListView::EmptyAt(int column, End end) const {
    EnsureOrder();
    const auto is_empty = [&](const auto& row) { return row->Cell(column).empty(); };
    if (end == End::kFirst) {
        const auto found = std::find_if(rows_.begin(), rows_.end(), is_empty);
        return found == rows_.end() ? nullptr : found->get();
    }
    const auto found = std::find_if(rows_.rbegin(), rows_.rend(), is_empty);
    return found == rows_.rend() ? nullptr : found->get();
}

ListRow* ListView::ExactlyAt(int column, std::string_view key, End end) const {
    if (key.empty()) return EmptyAt(column, end);
    const CellIndex::Group* group = GroupOf(column, key);
    ListRow* best = nullptr;
    if (group == nullptr) return best;
    if (group->only != nullptr) {
        return group->only->Cell(column) == key ? group->only : nullptr;
    }
    for (ListRow* row : group->several->rows) {
        if (row->Cell(column) != key) continue;
        const bool is_better = best == nullptr || (Before(*row, *best) == (end == End::kFirst));
        if (is_better) best = row;
    }
    return best;
}

ListRow* ListView::FirstWith(int column, std::string_view key) const {
    if (key.empty()) return EmptyAt(column, End::kFirst);
    const CellIndex::Group* group = GroupOf(column, key);
    if (group == nullptr || group->only != nullptr) return group == nullptr ? nullptr : group->only;
    return Ordered(*group).first;
}

ListRow* ListView::LastWith(int column, std::string_view key) const {
    if (key.empty()) return EmptyAt(column, End::kLast);
    const CellIndex::Group* group = GroupOf(column, key);
    if (group == nullptr || group->only != nullptr) return group == nullptr ? nullptr : group->only;
    return Ordered(*group).last;
}

ListRow* ListView::FirstWithExactly(int column, std::string_view key) const {
    return ExactlyAt(column, key, End::kFirst);
}

ListRow* ListView::LastWithExactly(int column, std::string_view key) const {
    return ExactlyAt(column, key, End::kLast);
}

}  // namespace quorrel
