#include "platform/controls/list_view.hpp"

#include <algorithm>

#include "platform/failure.hpp"

namespace quorrel {

const std::string& ListRow::SubItems(int column) const {
    if (column < 1 || static_cast<std::size_t>(column) >= cells_.size()) {
        throw RuntimeError(run_time_error::kSubscriptOutOfRange);
    }
    return cells_[static_cast<std::size_t>(column)];
}

void ListRow::SetCell(int column, std::string text) {
    if (column < 0 || static_cast<std::size_t>(column) >= cells_.size()) {
        throw RuntimeError(run_time_error::kSubscriptOutOfRange);
    }
    std::string& cell = cells_[static_cast<std::size_t>(column)];
    if (cell == text) return;
    table_.BeforeCellChange(*this, column);
    cell = std::move(text);
    table_.AfterCellChange(*this, column);
}

void ListRow::AppendToSubItem(int column, std::string_view text) {
    if (column < 1 || static_cast<std::size_t>(column) >= cells_.size()) {
        throw RuntimeError(run_time_error::kSubscriptOutOfRange);
    }
    if (text.empty()) return;
    table_.BeforeCellChange(*this, column);
    cells_[static_cast<std::size_t>(column)].append(text);
    table_.AfterCellChange(*this, column);
}

ListView::ListView(int cells, int sort_column)
    : cells_(cells), sort_column_(sort_column), indexes_(static_cast<std::size_t>(cells)) {}

ListView::~ListView() = default;

ListRow& ListView::Add(std::string text) {
    // Not make_unique: only the table makes rows.
    rows_.push_back(std::unique_ptr<ListRow>(
        new ListRow(*this, ++additions_, static_cast<std::size_t>(cells_))));
    ListRow& row = *rows_.back();
    row.cells_[0] = std::move(text);
    positions_valid_ = false;
    for (int column = 0; column < cells_; ++column) {
        auto& index = indexes_[static_cast<std::size_t>(column)];
        if (index != nullptr) AddToIndex(*index, row, column);
    }
    rows_changed.Emit();
    return row;
}

bool ListView::Before(const ListRow& a, const ListRow& b) const {
    if (sort_column_ != kUnsorted) {
        const auto column = static_cast<std::size_t>(sort_column_);
        const int order = CompareIgnoringCase(a.cells_[column], b.cells_[column]);
        if (order != 0) return order < 0;
    }
    return a.number_ < b.number_;
}

void ListView::EnsureOrder() const {
    if (placed_ == rows_.size()) return;
    const auto before = [this](const std::unique_ptr<ListRow>& a,
                               const std::unique_ptr<ListRow>& b) { return Before(*a, *b); };
    const auto middle = rows_.begin() + static_cast<std::ptrdiff_t>(placed_);
    std::sort(middle, rows_.end(), before);
    // The usual case of a reader: the new rows follow the old ones.
    if (placed_ != 0 && before(*middle, *(middle - 1))) {
        std::inplace_merge(rows_.begin(), middle, rows_.end(), before);
    }
    for (std::size_t i = 0; i < rows_.size(); ++i) rows_[i]->pending_ = false;
    placed_ = rows_.size();
    positions_valid_ = false;
    ++order_version_;
}

void ListView::EnsurePositions() const {
    EnsureOrder();
    if (positions_valid_) return;
    for (std::size_t i = 0; i < rows_.size(); ++i) rows_[i]->position_ = i + 1;
    positions_valid_ = true;
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
    EnsurePositions();
    return static_cast<int>(row.position_);
}

void ListView::Remove(int position) {
    ListRow& row = At(position);
    for (int column = 0; column < cells_; ++column) {
        auto& index = indexes_[static_cast<std::size_t>(column)];
        if (index != nullptr) RemoveFromIndex(*index, row, column);
    }
    if (selected_ == &row) Select(nullptr);
    rows_.erase(rows_.begin() + (position - 1));
    placed_ = rows_.size();
    positions_valid_ = false;
    ++order_version_;
    rows_changed.Emit();
}

void ListView::Clear() {
    Select(nullptr);
    rows_.clear();
    placed_ = 0;
    positions_valid_ = false;
    ++order_version_;
    for (auto& index : indexes_) index.reset();
    rows_changed.Emit();
}

void ListView::SortBy(int column) {
    if (column == sort_column_) return;
    sort_column_ = column;
    placed_ = 0;
    for (const auto& row : rows_) row->pending_ = true;
    positions_valid_ = false;
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
    EnsurePositions();
    const auto at = rows_.begin() + static_cast<std::ptrdiff_t>(row.position_ - 1);
    std::rotate(at, at + 1, rows_.end());
    row.pending_ = true;
    placed_ = rows_.size() - 1;
    positions_valid_ = false;
}

void ListView::BeforeCellChange(ListRow& row, int column) {
    auto& index = indexes_[static_cast<std::size_t>(column)];
    if (index != nullptr) RemoveFromIndex(*index, row, column);
    if (column == sort_column_) Unplace(row);
}

void ListView::AfterCellChange(ListRow& row, int column) {
    auto& index = indexes_[static_cast<std::size_t>(column)];
    if (index != nullptr) AddToIndex(*index, row, column);
    if (column == sort_column_) {
        ++order_version_;
        rows_changed.Emit();
    } else {
        row_changed.Emit(row);
    }
}

void ListView::AddToIndex(Index& index, ListRow& row, int column) {
    const std::string& key = row.cells_[static_cast<std::size_t>(column)];
    // Nothing is looked up by an empty key often; a group of all rows without one would be slow
    // to leave.
    if (key.empty()) return;
    Group& group = index[key];
    group.rows.push_back(&row);
    group.order_version = 0;
}

void ListView::RemoveFromIndex(Index& index, const ListRow& row, int column) {
    const auto found = index.find(row.cells_[static_cast<std::size_t>(column)]);
    if (found == index.end()) return;
    auto& rows = found->second.rows;
    rows.erase(std::remove(rows.begin(), rows.end(), &row), rows.end());
    found->second.order_version = 0;
    if (rows.empty()) index.erase(found);
}

const ListView::Index& ListView::IndexOf(int column) const {
    auto& index = indexes_.at(static_cast<std::size_t>(column));
    if (index == nullptr) {
        index = std::make_unique<Index>();
        index->reserve(rows_.size());
        for (const auto& row : rows_) AddToIndex(*index, *row, column);
    }
    return *index;
}

const ListView::Group* ListView::GroupOf(int column, std::string_view key) const {
    EnsureOrder();
    const Index& index = IndexOf(column);
    const auto found = index.find(key);
    if (found == index.end()) return nullptr;
    const Group& group = found->second;
    if (group.order_version != order_version_) {
        const auto before = [this](const ListRow* a, const ListRow* b) { return Before(*a, *b); };
        const auto [first, last] =
            std::minmax_element(group.rows.begin(), group.rows.end(), before);
        group.first = *first;
        group.last = *last;
        group.order_version = order_version_;
    }
    return &group;
}

ListRow* ListView::EmptyAt(int column, End end) const {
    EnsureOrder();
    const auto cell = static_cast<std::size_t>(column);
    const auto is_empty = [&](const auto& row) { return row->cells_[cell].empty(); };
    if (end == End::kFirst) {
        const auto found = std::find_if(rows_.begin(), rows_.end(), is_empty);
        return found == rows_.end() ? nullptr : found->get();
    }
    const auto found = std::find_if(rows_.rbegin(), rows_.rend(), is_empty);
    return found == rows_.rend() ? nullptr : found->get();
}

ListRow* ListView::ExactlyAt(int column, std::string_view key, End end) const {
    if (key.empty()) return EmptyAt(column, end);
    const Group* group = GroupOf(column, key);
    ListRow* best = nullptr;
    if (group == nullptr) return best;
    for (ListRow* row : group->rows) {
        if (row->cells_[static_cast<std::size_t>(column)] != key) continue;
        const bool is_better = best == nullptr || (Before(*row, *best) == (end == End::kFirst));
        if (is_better) best = row;
    }
    return best;
}

ListRow* ListView::FirstWith(int column, std::string_view key) const {
    if (key.empty()) return EmptyAt(column, End::kFirst);
    const Group* group = GroupOf(column, key);
    return group == nullptr ? nullptr : group->first;
}

ListRow* ListView::LastWith(int column, std::string_view key) const {
    if (key.empty()) return EmptyAt(column, End::kLast);
    const Group* group = GroupOf(column, key);
    return group == nullptr ? nullptr : group->last;
}

ListRow* ListView::FirstWithExactly(int column, std::string_view key) const {
    return ExactlyAt(column, key, End::kFirst);
}

ListRow* ListView::LastWithExactly(int column, std::string_view key) const {
    return ExactlyAt(column, key, End::kLast);
}

}  // namespace quorrel
