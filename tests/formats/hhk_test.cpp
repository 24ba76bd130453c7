#include "formats/htmlhelp/hhk.hpp"

#include "platform/text.hpp"
#include "support/model_text.hpp"
#include "support/project_fixture.hpp"

namespace quorrel {
namespace {

class Keywords : public testing::Test {
  protected:
    void Read(std::string_view text) {
        ReadKeywords(text, "C:\\p", keywords, topics.ListTopics, Trap(log, "test: "));
    }
    /// What is written between the head and the tail.
    [[nodiscard]] std::string Body() const {
        const std::string text = WriteKeywords(keywords, "C:\\p\\guide.hhp");
        const std::size_t begin = text.find("<UL>\r\n") + 6;
        return text.substr(begin, text.rfind("</UL>\r\n") - begin);
    }
    void AddTopic(std::string title, std::string path) {
        topics.ListTopics.Add(std::move(title)).SetSubItem(topic_cell::kFullPath, std::move(path));
    }
    void AddRow(std::string text, std::string key, std::string targets) {
        ListRow& row = keywords.ListKeywords.Add(std::move(text));
        row.SetSubItem(keyword_cell::IDX_FULLKEY, std::move(key));
        row.SetSubItem(keyword_cell::IDX_TITLEPATH, std::move(targets));
    }
    [[nodiscard]] std::vector<std::string> Rows() const {
        return test::KeywordRows(keywords.ListKeywords);
    }
    using Lines = std::vector<std::string>;

    ErrorLog log{[this](std::string_view line) { log_lines.emplace_back(line); }};
    Lines log_lines;
    TopicTables topics;
    KeywordState keywords;
};

std::string Param(std::string_view name, std::string_view value) {
    return "<param name=\"" + std::string(name) + "\" value=\"" + std::string(value) + "\">\n";
}
std::string Entry(std::string_view keyword, std::string_view more = {}) {
    return "<LI> <OBJECT type=\"text/sitemap\">\n" + Param("Name", keyword) + std::string(more) +
           "</OBJECT>\n";
}

TEST_F(Keywords, BecomeRowsWithTargets) {
    AddTopic("A", "C:\\p\\a.htm");
    AddTopic("B", "C:\\P\\Q\\B.htm");
    Read("<UL>\n" +
         Entry("print", Param("Name", "A") + Param("Local", "a.htm") + Param("name", "B") +
                            Param("LOCAL", "\\q\\b.htm")) +
         "<UL>\n" + Entry("setup", Param("Local", "D:/x.htm")) + "</UL>\n" +
         Entry("zoom", Param("See Also", "size")) + Entry("Apple", Param("Name", "only a title")));
    EXPECT_EQ(Rows(),
              (Lines{"Apple|Apple|only a title", "print|print|A>C:\\p\\a.htm;:B>C:\\p\\q\\b.htm;:",
                     "      setup|print    :setup|>D:/x.htm;:", "zoom|zoom|SEE ALSO: size>"}));
    EXPECT_EQ(topics.ListTopics.At(2).SubItems(topic_cell::kKeywords), "print;");
}

TEST_F(Keywords, AnAddressKeepsItsSlashes) {
    Read(Entry("web", Param("Name", "A") + Param("Local", "https://h/a.htm")));
    // The drive of the project stands in "https:" too.
    EXPECT_TRUE(Contains(WriteKeywords(keywords, "S:\\guide.hhp"),
                         "<param name=\"Local\" value=\"https://h/a.htm\">"));
}

TEST_F(Keywords, DeeperEntriesKnowOnlyTheKeywordBefore) {
    Read("<UL>\n" + Entry("a") + "<UL>\n" + Entry("b") + "<UL>\n" + Entry("c") + "</UL>\n" +
         Entry("d"));
    EXPECT_EQ(Rows(),
              (Lines{"a|a|", "      b|a    :b|", "         c|b    :c|", "      d|b    :d|"}));
}

TEST_F(Keywords, ParamsBeforeTheFirstNameAreIgnored) {
    Read("<LI><OBJECT>\n" + Param("See Also", "x") + Param("Local", "y.htm") + Param("Name", "k") +
         "</OBJECT>\n");
    EXPECT_EQ(Rows(), (Lines{"k|k|"}));
    // An end of an object outside an entry empties the last row once more.
    Read(Entry("m", Param("Local", "a.htm")) + "</OBJECT>\n");
    EXPECT_EQ(Rows().back(), "m|m|");
}

TEST_F(Keywords, ATopicKeepsAKeyOnce) {
    AddTopic("A", "C:\\p\\a.htm");
    Read(Entry("fonts", Param("Local", "a.htm") + Param("Local", "A.HTM")) +
         Entry("font", Param("Local", "a.htm")));
    // "font" stands in "fonts" already.
    EXPECT_EQ(topics.ListTopics.At(1).SubItems(topic_cell::kKeywords), "fonts;");
}

TEST_F(Keywords, AreWrittenInTwoLevels) {
    AddRow("a", "a", "");
    AddRow("      b \"1\"", "a    :b", "T <1>>C:\\p\\q\\t.htm;:no mark;:>D:\\u.htm;:");
    AddRow("         c", "b    :c", "x>SEE ALSO:   other>;:");
    AddRow("d", "d", "SEE ALSO: e>");
    EXPECT_EQ(Body(),
              "     <LI><OBJECT type=\"text/sitemap\">\r\n"
              "         <param name=\"Name\" value=\"a\">\r\n"
              "         <param name=\"See Also\" value=\"a\">\r\n"
              "     </OBJECT>\r\n"
              "     <UL>\r\n"
              "          <LI><OBJECT type=\"text/sitemap\">\r\n"
              "              <param name=\"Name\" value=\"b \"1\"\">\r\n"
              "              <param name=\"Name\" value=\"T <1\">\r\n"
              "              <param name=\"Local\" value=\"q\\t.htm\">\r\n"
              "              <param name=\"Name\" value=\"\">\r\n"
              "              <param name=\"Local\" value=\"D:\\u.htm\">\r\n"
              "          </OBJECT>\r\n"
              "          <LI><OBJECT type=\"text/sitemap\">\r\n"
              "              <param name=\"Name\" value=\"c\">\r\n"
              "              <param name=\"See Also\" value=\"other\">\r\n"
              "          </OBJECT>\r\n"
              "     </UL>\r\n"
              "     <LI><OBJECT type=\"text/sitemap\">\r\n"
              "         <param name=\"Name\" value=\"d\">\r\n"
              "         <param name=\"See Also\" value=\"e\">\r\n"
              "     </OBJECT>\r\n");
}

TEST_F(Keywords, ALastSubEntryLeavesItsListOpen) {
    AddRow("a", "a", "A>C:\\p\\a.htm;:");
    AddRow("      b", "a    :b", "A>C:\\p\\a.htm;:");
    EXPECT_EQ(Body().find("</UL>"), npos);
}

TEST_F(Keywords, NestingWithoutEndStaysWithinTheMemory) {
    std::string text = Entry("top");
    for (int i = 0; i < 400000; ++i) text += "<UL>\n";
    for (int i = 0; i < 500; ++i) text += Entry("x" + std::to_string(i));
    Read(text);
    EXPECT_GT(keywords.ListKeywords.Count(), 100);
    EXPECT_LT(keywords.ListKeywords.Count(), 501);
    EXPECT_EQ(log_lines, (Lines{"test: 7 Out of memory"}));
}

TEST_F(Keywords, ALongKeywordWithManySubKeysStaysWithinTheMemory) {
    std::string text = Entry(std::string(500'000, 'k')) + "<UL>\n";
    for (int i = 0; i < 20000; ++i) text += Entry("s");
    Read(text);
    EXPECT_LT(keywords.ListKeywords.Count(), 2000);
    EXPECT_EQ(log_lines, (Lines{"test: 7 Out of memory"}));
}

class IndexFile : public test::ProjectFixture {};

TEST_F(IndexFile, IsAlwaysWrittenAndKeepsABackup) {
    main.project.proj = folder.Windows("guide.hhp");
    folder.Write("guide.hhk", "old");
    HTMLWriteIndex(main);
    EXPECT_EQ(folder.Read("guide.hhk.bak"), "old");
    ReadIndex(main);
    EXPECT_EQ(main.keywords.ListKeywords.Count(), 0);
}

}  // namespace
}  // namespace quorrel
