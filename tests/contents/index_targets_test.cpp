#include "contents/index_targets.hpp"

#include <gtest/gtest.h>

#include "contents/contents_state.hpp"

namespace quorrel::test {
namespace {

using namespace keyword_cell;

ListRow& AddKey(ListView& table, const char* key, const char* targets) {
    ListRow& row = table.Add(key);
    row.SetSubItem(IDX_TITLEPATH, targets);
    row.SetSubItem(IDX_FULLKEY, key);
    return row;
}

TEST(IndexTargets, AreGroupsOfTitleAndPath) {
    std::string joined;
    for (const auto& [title, path] : IndexTargets("A>Z:\\a.htm;:no mark;:B>b.htm#x;:>c.htm")) {
        joined += title + "|" + path + " ";
    }
    EXPECT_EQ(joined, "A|Z:\\a.htm B|b.htm#x |c.htm ");
}

TEST(SeeAlso, LeadsToTheKeyAsItIsSpelled) {
    ListView table{3, IDX_FULLKEY};
    AddKey(table, "main", "");
    ListRow& sub = AddKey(table, "main    :sub", "T>t.htm;:");
    AddKey(table, "MAIN    :SUB", "");
    EXPECT_EQ(SeeAlsoRow(table, AddKey(table, "x", "SEE ALSO:   main:sub>rest")), &sub);
    EXPECT_EQ(SeeAlsoRow(table, AddKey(table, "y", "SEE ALSO: missing>")), nullptr);
    EXPECT_EQ(SeeAlsoRow(table, sub), nullptr);
    EXPECT_FALSE(IsSeeAlso(sub));
}

}  // namespace
}  // namespace quorrel::test
