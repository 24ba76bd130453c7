#include "formats/htmlhelp/hhc.hpp"

#include "contents/node_data.hpp"
#include "platform/text.hpp"
#include "support/model_text.hpp"
#include "support/project_fixture.hpp"

namespace quorrel {
namespace {

class Contents : public testing::Test {
  protected:
    void Read(std::string_view text) {
        const Trap trap(log, "test: ");
        ReadContents(text,
                     {"C:\\p\\q\\toc.hhc", javahelp, topics.ListTopics, topics.ListAliases, trap},
                     tree, properties);
    }
    [[nodiscard]] std::string Write() const {
        return WriteContents(tree, properties, "C:\\p\\guide.hhp");
    }
    void AddTopic(std::string path, std::string id) {
        ListRow& row = topics.ListTopics.Add("t");
        row.SetSubItem(topic_cell::kFullPath, std::move(path));
        row.SetSubItem(topic_cell::kMapId, std::move(id));
    }
    /// The tree of a text with the tags left out.
    std::string ShapeOf(std::string_view text) {
        tree.Clear();
        Read(text);
        for (int i = 1; i <= tree.Count(); ++i) tree.At(i).Tag.clear();
        return ReplaceAll(test::TreeText(tree.Roots()), "{}", "");
    }

    ErrorLog log{[this](std::string_view line) { log_lines.emplace_back(line); }};
    std::vector<std::string> log_lines;
    bool javahelp = false;
    TopicTables topics;
    TreeView tree;
    std::string properties;
};

constexpr std::string_view kHead =
    "<!DOCTYPE HTML PUBLIC \"-//IETF//DTD HTML//EN\">\r\n<HTML>\r\n<HEAD>\r\n"
    "<!-- Sitemap 1.0 -->\r\n</HEAD><BODY>\r\n<UL>\r\n";
constexpr std::string_view kTail = "</UL>\r\n</BODY></HTML>\r\n";

std::string Entry(std::string_view name, std::string_view more = {}) {
    return "<LI> <OBJECT type=\"text/sitemap\">\n<param name=\"Name\" value=\"" +
           std::string(name) + "\">\n" + std::string(more) + "</OBJECT>\n";
}
std::string Local(std::string_view path) {
    return "<param name=\"Local\" value=\"" + std::string(path) + "\">\n";
}

TEST_F(Contents, AnEntryBecomesANodeWithItsData) {
    AddTopic("C:\\p\\q\\A.htm", "first");
    AddTopic("c:\\P\\Q\\a.HTM", "last");
    Read("<UL>\n" + Entry("Book", "<param name=\"ImageNumber\" value=1>\n") + "<UL>\n" +
         Entry("Page",
               Local("a.htm") + "<PARAM NAME=\"FrameName\" value=\"f\">\n" +
                   "<param name=\"New\" value=\"1\">\n<param name=\"Comment\" value=\"x, y\">\n" +
                   Local("b.htm")) +
         "</UL>\n</UL>\n");
    EXPECT_EQ(test::TreeText(tree.Roots()),
              "Book2{#^##^#1,,,,#^#}(Page3{C:\\p\\q\\a.htm#^#last#^#,f,,1,"
              "<param name=\"Comment\" value=\"x, y\">\r\n<param name=\"Local\" "
              "value=\"b.htm\">\r\n#^#})");
}

TEST_F(Contents, AreWrittenBetweenHeadAndTail) {
    EXPECT_EQ(Write(), std::string(kHead) + std::string(kTail));
    TreeNode& book = tree.Add(nullptr, NodeRelation::kChild, "Book", 2, 2);
    TreeNode& page = tree.Add(&book, NodeRelation::kChild, "  <Page> \"1\" & more", 3, 3);
    book.Tag = PackNodeData("", "", ",,,,");
    page.Tag = PackNodeData("C:\\p\\page.htm", "page", "11,f<,w,0,<param name=\"x\">\r\n");
    EXPECT_EQ(Write(),
              std::string(kHead) +
                  "     <LI><OBJECT type=\"text/sitemap\">\r\n"
                  "         <param name=\"Name\" value=\"Book\">\r\n"
                  "          </OBJECT>\r\n"
                  "     <UL>\r\n"
                  "          <LI><OBJECT type=\"text/sitemap\">\r\n"
                  "              <param name=\"Name\" value=\"&lt;Page&gt; %221%22 & more\">\r\n"
                  "              <param name=\"Local\" value=\"page.htm\">\r\n"
                  "              <param name=\"FrameName\" value=\"f<\">\r\n"
                  "              <param name=\"WindowName\" value=\"w\">\r\n"
                  "              <param name=\"ImageNumber\" value=\"11\">\r\n"
                  "<param name=\"x\">\r\n"
                  "               </OBJECT>\r\n"
                  "     </UL>\r\n" +
                  std::string(kTail));
}

TEST_F(Contents, APartWithoutItsCommaKeepsThatOfTheNodeBefore) {
    tree.Add(nullptr, NodeRelation::kChild, "a", 3, 3).Tag = PackNodeData("", "", "7,f,w,1,");
    tree.Add(nullptr, NodeRelation::kChild, "b", 3, 3).Tag = PackNodeData("", "", "8,g");
    const std::string text = Write();
    const std::string b = text.substr(text.find("\"b\""));
    EXPECT_NE(b.find("\"FrameName\" value=\"f\""), npos) << b;
    EXPECT_NE(b.find("\"ImageNumber\" value=\"8\""), npos) << b;
}

TEST_F(Contents, LevelsFollowTheLists) {
    EXPECT_EQ(ShapeOf("<UL>\n<UL>\n" + Entry("a") + "<UL>\n" + Entry("b") + "<UL>\n" + Entry("c") +
                      "</UL></UL>\n</UL>\n" + Entry("d")),
              "a2(b2(c3)) d3");
    // A list that opens on the very line behind the name has no node to go under.
    EXPECT_EQ(ShapeOf("<LI><OBJECT>\n<param name=Name value=a>\n<UL>\n<param name=Name value=b>\n"),
              "a3");
    EXPECT_EQ(log_lines, (std::vector<std::string>{"test: 35600 Index out of bounds"}));
}

TEST_F(Contents, ParamsCountOnlyOnLinesOfTheirOwn) {
    EXPECT_EQ(
        ShapeOf("<LI><OBJECT type=\"text/sitemap\"><param name=\"Name\" value=\"a\"></OBJECT>\n"),
        "");
    EXPECT_EQ(ShapeOf("<LI><OBJECT>\n<param name=\"Name\" value=\"a\"></OBJECT>\n"), "a3");
    // An empty name opens no node; a second name opens another one.
    EXPECT_EQ(ShapeOf(Entry("") + Entry("a", "<param name=\"Name\" value=\"b\">\n")), "a3 b3");
    EXPECT_EQ(ShapeOf("<li>\r<PARAM VALUE=\"x > y\" NAME=\"name\">\r</object>\r"), "");
    EXPECT_EQ(ShapeOf("<li>\r<PARAM name=name value=\"x > y\">\r</object>\r"), "x 3");
}

TEST_F(Contents, EscapesStayAsTheyAre) {
    Read(Entry("a &lt; %22b%22", Local("http://x/y#z")));
    EXPECT_EQ(test::TreeText(tree.Roots()), "a &lt; %22b%223{http://x/y#z#^##^#,,,,#^#}");
}

TEST_F(Contents, AnEntryWithoutALocationHasTheAliasOfTheOneBefore) {
    AddTopic("C:\\p\\q\\a.htm", "A");
    Read(Entry("a", Local("a.htm")) + Entry("b") + Entry("c", Local("c.htm")) + Entry("d"));
    EXPECT_EQ(test::TreeText(tree.Roots()),
              "a3{C:\\p\\q\\a.htm#^#A#^#,,,,#^#} b3{#^#A#^#,,,,#^#} "
              "c3{C:\\p\\q\\c.htm#^##^#,,,,#^#} d3{#^##^#,,,,#^#}");
}

TEST_F(Contents, TheJavaHelpEditionMakesMapIdsAndNoCommaText) {
    javahelp = true;
    AddTopic("C:\\p\\q\\a.htm", "A");
    Read(Entry("a", Local("a.htm")) +
         Entry("b", Local("x/b-\xC3\xA9.htm#c") + "<param name=x value=y>\n"));
    EXPECT_EQ(test::TreeText(tree.Roots()),
              "a3{C:\\p\\q\\a.htm#^#A#^##^#} "
              "b3{C:\\p\\q\\x\\b-\xC3\xA9.htm#c#^#b___htm_c#^##^#}");
    ASSERT_EQ(topics.ListAliases.Count(), 1);
    EXPECT_EQ(topics.ListAliases.At(1).SubItems(alias_cell::kPath),
              "C:\\p\\q\\x\\b-\xC3\xA9.htm#c");
}

TEST_F(Contents, SitePropertiesAreKeptVerbatim) {
    const std::string object =
        "  <object type=\"text/Site Properties\">\n<param name=\"a\" value=\"b\">\n</OBJECT>\n";
    Read("<UL>\n" + object + Entry("a"));
    EXPECT_EQ(properties, ReplaceAll(object, "\n", "\r\n"));
    EXPECT_EQ(Write().find(properties), kHead.size());
    properties = "12345678901234567890";
    EXPECT_EQ(Write().find(properties), npos);
}

TEST_F(Contents, AnUnclosedSitePropertiesObjectEndsWithTheFile) {
    Read(Entry("a") + "<OBJECT type=\"text/site properties\">\n" + Entry("b"));
    EXPECT_EQ(tree.Count(), 1) << "the end of b's object ends the properties";
    properties.clear();
    Read("<OBJECT type=\"text/site properties\">\n<param name=\"a\" value=\"b\">\n");
    EXPECT_EQ(CountCharacters(properties), 66U);
    EXPECT_EQ(log_lines, (std::vector<std::string>{"test: 62 Input past end of file"}));
}

TEST_F(Contents, NestingBeyondTheLastLevelIsLoggedAndNotPlaced) {
    std::string text;
    for (int i = 1; i <= 10000; ++i) text += Entry("x") + "<UL>\n";
    Read(text + Entry("end"));
    EXPECT_EQ(tree.Count(), 31);
    EXPECT_EQ(log_lines, (std::vector<std::string>{"test: 9 Subscript out of range"}));
}

TEST_F(Contents, ALongAliasWithManyHeadingsStaysWithinTheMemory) {
    AddTopic("C:\\p\\q\\a.htm", std::string(500'000, 'A'));
    std::string text = Entry("a", Local("a.htm"));
    for (int i = 0; i < 20000; ++i) text += Entry("x");
    Read(text);
    EXPECT_EQ(tree.Count(), 20001);
    EXPECT_EQ(log_lines, (std::vector<std::string>{"test: 7 Out of memory"}));
}

class ContentsFile : public test::ProjectFixture {};

TEST_F(ContentsFile, IsWrittenOnlyWhenChanged) {
    main.project.proj = folder.Windows("guide.hhp");
    HTMLWriteTOC(main);
    EXPECT_FALSE(folder.Exists("guide.hhc"));
    main.contents.toc_dirty = true;
    main.contents.Tree1.Add(nullptr, NodeRelation::kChild, "\xD0\x96\xC3\xA9", 3, 3);
    HTMLWriteTOC(main);
    EXPECT_EQ(main.project.hhcfile, folder.Windows("guide.hhc"));
    EXPECT_NE(folder.Read("guide.hhc").find("value=\"&#1046;\xE9\""), npos);
    EXPECT_FALSE(main.contents.toc_dirty);
    ReadTOC(main);
    EXPECT_EQ(main.window.StatusBar1.Panel(1), "Reading Table of Contents...");
}

TEST(NodeData, StopsAtAFieldWithoutItsSeparator) {
    const auto fields = [](std::string_view text) {
        const NodeData data = UnpackNodeData(text);
        return data.location + "|" + data.target + "|" + data.extra;
    };
    EXPECT_EQ(fields(""), "||");
    EXPECT_EQ(fields("a#^#b"), "a||");
    EXPECT_EQ(fields(PackNodeData("a", "", "c,d") + "rest"), "a||c,d");
}

}  // namespace
}  // namespace quorrel
