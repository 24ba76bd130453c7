#include "contents/keyword_store.hpp"

#include "platform/text.hpp"
#include "support/project_fixture.hpp"

namespace quorrel {
namespace {

class KeywordStore : public test::ProjectFixture {
  protected:
    using Lines = std::vector<std::string>;
    [[nodiscard]] Lines Rows() const {
        Lines rows;
        for (int i = 1; i <= main.keywords.ListKeywords.Count(); ++i) {
            const ListRow& row = main.keywords.ListKeywords.At(i);
            rows.push_back(row.Text() + "|" + row.SubItems(2) + "|" + row.SubItems(1));
        }
        return rows;
    }
    void Delete(std::string_view key, std::string_view path) {
        main.keywords.index_dirty = false;
        DeleteKeyFromIndex(main.keywords, key, path);
        EXPECT_TRUE(main.keywords.index_dirty);
    }
};

TEST_F(KeywordStore, AnEntryIsAddedOnce) {
    AddToIndex(main, "T", "C:\\t.htm", "print;print##b;print;Print;no end");
    EXPECT_EQ(Rows(),
              (Lines{"print|print|T>C:\\t.htm;:T>C:\\t.htm#b;:", "Print|Print|T>C:\\t.htm;:"}));
    EXPECT_TRUE(main.keywords.index_dirty);
    EXPECT_TRUE(main.editor.ActiveDirty);
}

TEST_F(KeywordStore, ANoteIsShownButIsNoPartOfTheKey) {
    AddToIndex(main, "T", "1", "Fonts (overview);");
    AddToIndex(main, "U", "2", "Fonts;");
    EXPECT_EQ(Rows(), (Lines{"Fonts (overview)|Fonts|T>1;:U>2;:"}));
    EXPECT_EQ(StripKeyNote("a (x) b (x)"), "a  b");
    EXPECT_EQ(StripKeyNote(")a("), ")a(");
    EXPECT_EQ(StripKeyNote("(a"), "(a");
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
    AddToIndex(main, "T", "C:\\t.htm", "k##b;");
    EXPECT_EQ(main.topics.ListAliases.Count(), 0);
    main.project.help_mode = 1;
    AddToIndex(main, "T", "C:\\t.htm", "k##b;k;k##c;");
    ASSERT_EQ(main.topics.ListAliases.Count(), 2);
    EXPECT_EQ(main.topics.ListAliases.At(2).Text(), "intro_c");
    EXPECT_EQ(main.topics.ListAliases.At(2).SubItems(1), "C:\\t.htm#c");
    // Once a key's bookmark is known the later ones of the call get none.
    AddToIndex(main, "T", "c:\\T.htm", "k##B;k##d;");
    EXPECT_EQ(main.topics.ListAliases.Count(), 2);
}

TEST_F(KeywordStore, DeletingTakesTargetsThenTheRow) {
    AddToIndex(main, "T", "C:\\t.htm", "k;k##b;");
    AddToIndex(main, "U", "C:\\u.htm", "k;");
    Delete("K##b", "c:\\T.HTM");
    EXPECT_EQ(Rows(), (Lines{"k|k|T>C:\\t.htm;:U>C:\\u.htm;:"}));
    Delete("k", "C:\\u");
    EXPECT_EQ(Rows(), (Lines{"k|k|T>C:\\t.htm;:"}));
    Delete("none", "C:\\t.htm");
    Delete("k", "C:\\t.htm");
    EXPECT_EQ(Rows(), Lines{});
}

TEST_F(KeywordStore, AHeadStaysForItsSubKeysAndGoesWithTheFirst) {
    AddToIndex(main, "T", "1", "A;A    :b;A    :c;");
    Delete("A", "1");
    EXPECT_EQ(Rows(), (Lines{"A|A|", "      b|A    :b|T>1;:", "      c|A    :c|T>1;:"}));
    Delete("A:b", "1");
    EXPECT_EQ(Rows(), (Lines{"      c|A    :c|T>1;:"}));
    Delete("A:c", "1");
    EXPECT_EQ(Rows(), Lines{});
}

TEST_F(KeywordStore, RenamingReplacesTextInTheRowsOfThePath) {
    AddToIndex(main, "Old", "1", "a;b;");
    AddToIndex(main, "Old", "2", "b;c;");
    RenameTitleInIndex(main.keywords, KeywordsOfTopic(main.keywords, "1"), "New", "Old", "1");
    EXPECT_EQ(Rows(), (Lines{"a|a|New>1;:", "b|b|New>1;:New>2;:", "c|c|Old>2;:"}));
}

}  // namespace
}  // namespace quorrel
