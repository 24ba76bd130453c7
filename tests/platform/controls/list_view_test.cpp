#include "platform/controls/list_view.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <array>
#include <random>
#include <string>
#include <vector>

#include "platform/controls/list_box.hpp"
#include "platform/unicode.hpp"
#include "support/error_number.hpp"

namespace quorrel {
namespace {

TEST(ListBox, ManyLinesComeToStandAsOneAfterTheOther) {
    std::mt19937 random(5);
    for (int turn = 0; turn < 200; ++turn) {
        ListBox one, many;
        for (int part = 0; part < 3; ++part) {
            std::vector<std::string> lines(random() % 6);
            for (std::string& line : lines) line = "aAbBc"[random() % 5];
            for (const std::string& line : lines) one.AddItem(line);
            many.AddItems(lines);
            ASSERT_EQ(many.List(), one.List());
            ASSERT_EQ(many.NewIndex(), one.NewIndex());
            ASSERT_EQ(many.ListIndex(), one.ListIndex());
            const int selected = static_cast<int>(random() % 7) % (one.ListCount() + 1) - 1;
            one.ListIndex = selected;
            many.ListIndex = selected;
        }
    }
}

TEST(ListView, NumbersOutsideTheTableAreErrors) {
    ListView table(2);
    ListRow& row = table.Add("a");
    for (const int position : {0, 2}) {
        EXPECT_EQ(test::NumberOf([&] { (void)table.At(position); }), 35600);
        EXPECT_EQ(test::NumberOf([&] { table.Remove(position); }), 35600);
    }
    EXPECT_EQ(test::NumberOf([&] { (void)row.SubItems(0); }), 9);
    for (const int column : {-1, 2}) {
        EXPECT_EQ(test::NumberOf([&] { (void)row.SubItems(column); }), 9);
        EXPECT_EQ(test::NumberOf([&] { row.SetSubItem(column, "x"); }), 9);
        EXPECT_EQ(test::NumberOf([&] { row.AppendToSubItem(column, "x"); }), 9);
    }
    EXPECT_EQ(table.Count(), 1);
}

TEST(ListView, SignalsTellWhatChanged) {
    ListView table(3, 1);
    int rows = 0, row = 0, own = 0;
    table.rows_changed.Connect([&] { ++rows; });
    table.row_changed.Connect([&](ListRow&) { ++row; });
    table.changed.Connect([&] { ++own; });
    const auto expect = [&](const char* what, int rows_told, int row_told, int own_told) {
        EXPECT_EQ((std::array{rows, row, own}), (std::array{rows_told, row_told, own_told}))
            << what;
        rows = row = own = 0;
    };
    ListRow& added = table.Add("a");
    expect("added", 1, 0, 0);
    added.SetSubItem(1, "key");
    expect("sort cell", 1, 0, 0);
    added.SetSubItem(2, "x");
    added.AppendToSubItem(2, "y");
    expect("other cell", 0, 2, 0);
    added.SetSubItem(2, "xy");
    added.SetSubItem(1, "key");
    added.AppendToSubItem(2, "");
    expect("equal text", 0, 0, 0);
    table.Select(&added);
    table.Select(&added);
    expect("selected", 0, 0, 1);
    table.SortBy(1);
    expect("same column", 0, 0, 0);
    table.SortBy(0);
    expect("other column", 1, 0, 0);
    table.Remove(1);
    expect("removed", 1, 0, 1);
}

/// The rows as a plain list, searched from end to end.
class NaiveList {
  public:
    struct Row {
        ListRow* row;
        std::array<std::string, 3> cells;
    };

    [[nodiscard]] std::vector<Row> Ordered() const {
        std::vector<Row> result = rows;
        if (sort_column < 0) return result;
        const auto column = static_cast<std::size_t>(sort_column);
        std::stable_sort(result.begin(), result.end(), [&](const Row& a, const Row& b) {
            return UpperUnicode(a.cells[column]) < UpperUnicode(b.cells[column]);
        });
        return result;
    }
    Row& Of(const ListRow* row) {
        return *std::find_if(rows.begin(), rows.end(), [&](const Row& r) { return r.row == row; });
    }

    std::vector<Row> rows;  // in order of addition
    int sort_column = -1;
};

void ExpectSame(ListView& table, const NaiveList& naive, const std::vector<std::string>& keys) {
    const auto ordered = naive.Ordered();
    ASSERT_EQ(table.Count(), static_cast<int>(ordered.size()));
    for (std::size_t i = 0; i < ordered.size(); ++i) {
        const int position = static_cast<int>(i) + 1;
        ASSERT_EQ(&table.At(position), ordered[i].row) << "position " << position;
        ASSERT_EQ(table.PositionOf(*ordered[i].row), position);
    }
    for (int column = 0; column < 3; ++column) {
        const auto cell = static_cast<std::size_t>(column);
        for (const std::string& key : keys) {
            ListRow* first = nullptr;
            ListRow* last = nullptr;
            ListRow* first_exactly = nullptr;
            ListRow* last_exactly = nullptr;
            for (const auto& row : ordered) {
                if (UpperUnicode(row.cells[cell]) == UpperUnicode(key)) {
                    if (first == nullptr) first = row.row;
                    last = row.row;
                }
                if (row.cells[cell] == key) {
                    if (first_exactly == nullptr) first_exactly = row.row;
                    last_exactly = row.row;
                }
            }
            const std::string where = "'" + key + "' in column " + std::to_string(column);
            ASSERT_EQ(table.FirstWith(column, key), first) << where;
            ASSERT_EQ(table.LastWith(column, key), last) << where;
            ASSERT_EQ(table.FirstWithExactly(column, key), first_exactly) << where;
            ASSERT_EQ(table.LastWithExactly(column, key), last_exactly) << where;
        }
    }
}

class ListViewOperations : public testing::TestWithParam<unsigned> {};

TEST_P(ListViewOperations, AgreeWithAPlainList) {
    const std::vector<std::string> keys = {"", "a", "A", "b", "ab", "aB", "ж", "Ж", "_", "I", "ı"};
    std::mt19937 random(GetParam());
    const auto below = [&](std::size_t limit) { return random() % limit; };
    NaiveList naive;
    naive.sort_column = static_cast<int>(below(4)) - 1;
    ListView table(3, naive.sort_column);
    for (int step = 0; step < 500; ++step) {
        const std::size_t action = below(100);
        const std::string key = keys[below(keys.size())];
        if (naive.rows.empty() || action < 35) {
            ListRow& row = table.Add(key);
            naive.rows.push_back({&row, {key, "", ""}});
        } else if (action < 75) {
            const std::size_t column = below(3);
            NaiveList::Row& changed = naive.rows[below(naive.rows.size())];
            if (column != 0 && action < 42) {
                changed.row->AppendToSubItem(static_cast<int>(column), key);
                changed.cells[column] += key;
            } else if (column == 0) {
                changed.row->SetText(key);
                changed.cells[column] = key;
            } else {
                changed.row->SetSubItem(static_cast<int>(column), key);
                changed.cells[column] = key;
            }
        } else if (action < 93) {
            const int position = static_cast<int>(below(naive.rows.size())) + 1;
            const ListRow* const gone = &table.At(position);
            table.Select(naive.rows[below(naive.rows.size())].row);
            const ListRow* const selected = table.SelectedItem();
            naive.rows.erase(naive.rows.begin() + (&naive.Of(gone) - naive.rows.data()));
            table.Remove(position);
            ASSERT_EQ(table.SelectedItem(), selected == gone ? nullptr : selected);
        } else if (action < 99) {
            naive.sort_column = static_cast<int>(below(4)) - 1;
            table.SortBy(naive.sort_column);
        } else {
            naive.rows.clear();
            table.Select(&table.At(1));
            table.Clear();
            ASSERT_EQ(table.SelectedItem(), nullptr);
        }
        // Not after each step, so that several changes wait for their place.
        if (below(3) == 0) {
            ASSERT_NO_FATAL_FAILURE(ExpectSame(table, naive, keys)) << "step " << step;
        }
    }
    ExpectSame(table, naive, keys);
}

INSTANTIATE_TEST_SUITE_P(Seeds, ListViewOperations, testing::Range(1U, 9U));

}  // namespace
}  // namespace quorrel
