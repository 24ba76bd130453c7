#include "contents/keyword_store.hpp"

#include "contents/index_targets.hpp"
#include "platform/text.hpp"
#include "support/model_text.hpp"
#include "support/project_fixture.hpp"

namespace quorrel {
namespace {

class KeywordStore : public test::ProjectFixture {
  protected:
    using Lines = std::vector<std::string>;
    [[nodiscard]] Lines Rows() const { return test::KeywordRows(main.keywords.ListKeywords); }
};

TEST_F(KeywordStore, AnEntryIsAddedOnce) {
    AddToIndex(main, "T", "C:\\t.htm", "print;print##b;print;Print;no end");
    EXPECT_EQ(Rows(),
              (Lines{"print|print|T>C:\\t.htm;:T>C:\\t.htm#b;:", "Print|Print|T>C:\\t.htm;:"}));
    EXPECT_TRUE(main.editor.ActiveDirty);
}

TEST_F(KeywordStore, ANoteIsShownButIsNoPartOfTheKey) {
    AddToIndex(main, "T", "1", "Fonts (overview);");
    AddToIndex(main, "U", "2", "Fonts;");
    EXPECT_EQ(Rows(), (Lines{"Fonts (overview)|Fonts|T>1;:U>2;:"}));
    EXPECT_EQ(StripKeyNote("a (x) b (x)"), "a  b");
    EXPECT_EQ(StripKeyNote(")a("), ")a(");
}

TEST_F(KeywordStore, ASubKeyGetsItsHeadRow) {
    AddToIndex(main, "T", "1", "A    :b;A    :c;");
    EXPECT_EQ(Rows(), (Lines{"A|A|", "      b|A    :b|T>1;:", "      c|A    :c|T>1;:"}));
    // A nearer row that merely contains the main key's text hides the head row further up; the
    // second sub-key contains it itself.
    AddToIndex(main, "T", "1", "z    :1;z    :a buzz;z    :q;");
    const Lines rows = Rows();
    EXPECT_EQ(std::count(rows.begin(), rows.end(), "z|z|"), 3);
    main.keywords.ListKeywords.Clear();
    AddToIndex(main, "T", "1", "    :of nothing;");
    EXPECT_EQ(Rows(), (Lines{"||", "      of nothing|    :of nothing|T>1;:"}));
}

TEST_F(KeywordStore, ABookmarkGetsAMapIdInAJavaHelpProject) {
    main.topics.ListTopics.Add("T").SetSubItem(topic_cell::kMapId, "intro");
    main.topics.current_topic_index = 1;
    main.project.help_mode = 1;
    AddToIndex(main, "T", "C:\\t.htm", "k##b;k;k##c;");
    ASSERT_EQ(main.topics.ListAliases.Count(), 2);
    EXPECT_EQ(main.topics.ListAliases.At(2).SubItems(1), "C:\\t.htm#c");
    // Once a key's bookmark is known the later ones of the call get none.
    AddToIndex(main, "T", "c:\\T.htm", "k##B;k##d;");
    EXPECT_EQ(main.topics.ListAliases.Count(), 2);
}

TEST_F(KeywordStore, DeletingTakesTargetsThenTheRow) {
    AddToIndex(main, "T", "C:\\t.htm", "k;k##b;");
    AddToIndex(main, "U", "C:\\u.htm", "k;");
    main.keywords.index_dirty = false;
    DeleteKeyFromIndex(main.keywords, "K##b", "c:\\T.HTM");
    EXPECT_EQ(Rows(), (Lines{"k|k|T>C:\\t.htm;:U>C:\\u.htm;:"}));
    EXPECT_TRUE(main.keywords.index_dirty);
    DeleteKeyFromIndex(main.keywords, "k", "C:\\u");
    EXPECT_EQ(Rows(), (Lines{"k|k|T>C:\\t.htm;:"}));
    DeleteKeyFromIndex(main.keywords, "none", "C:\\t.htm");
    DeleteKeyFromIndex(main.keywords, "k", "C:\\t.htm");
    EXPECT_EQ(Rows(), Lines{});
}

TEST_F(KeywordStore, AHeadStaysForItsSubKeysAndGoesWithTheFirst) {
    AddToIndex(main, "T", "1", "A;A    :b;A    :c;");
    DeleteKeyFromIndex(main.keywords, "A", "1");
    EXPECT_EQ(Rows(), (Lines{"A|A|", "      b|A    :b|T>1;:", "      c|A    :c|T>1;:"}));
    DeleteKeyFromIndex(main.keywords, "A    :b", "1");
    EXPECT_EQ(Rows(), (Lines{"      c|A    :c|T>1;:"}));
    DeleteKeyFromIndex(main.keywords, "A    :c", "1");
    EXPECT_EQ(Rows(), Lines{});
}

TEST_F(KeywordStore, RenamingReplacesTextInTheRowsOfThePath) {
    AddToIndex(main, "Old", "1", "a;b;");
    AddToIndex(main, "Old", "2", "b;c;");
    RenameTitleInIndex(main.keywords, "New", "Old", "1");
    EXPECT_EQ(Rows(), (Lines{"a|a|New>1;:", "b|b|New>1;:New>2;:", "c|c|Old>2;:"}));
}

TEST_F(KeywordStore, RenamingLeavesPathsAlone) {
    AddToIndex(main, "Overview", "C:\\Overview.htm", "a;");
    AddToIndex(main, "An Overview;:", "C:\\Overview2.htm", "a;");
    RenameTitleInIndex(main.keywords, "Start", "Overview", "C:\\Overview.htm");
    EXPECT_EQ(Rows(), (Lines{"a|a|Start>C:\\Overview.htm;:An Start;:>C:\\Overview2.htm;:"}));
}

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
}  // namespace quorrel
