// The writers of the four JavaHelp files.

#include <array>

#include "contents/node_data.hpp"
#include "formats/javahelp/helpset.hpp"
#include "formats/javahelp/index_xml.hpp"
#include "formats/javahelp/jhm.hpp"
#include "formats/javahelp/toc_xml.hpp"
#include "platform/text.hpp"
#include "support/project_fixture.hpp"

namespace quorrel {
namespace {

using Lines = std::vector<std::string>;

TreeNode& AddNode(TreeView& tree, TreeNode* parent, std::string text, std::string_view target,
                  std::string_view image = {}) {
    TreeNode& node = tree.Add(parent, NodeRelation::kChild, std::move(text), 3, 3);
    node.Tag = PackNodeData("C:\\p\\any.htm", target, image);
    return node;
}

void AddTopic(TopicTables& tables, std::string title, std::string id, std::string path) {
    ListRow& row = tables.ListTopics.Add(std::move(title));
    row.SetSubItem(topic_cell::kMapId, std::move(id));
    row.SetSubItem(topic_cell::kFullPath, std::move(path));
}

void AddAlias(TopicTables& tables, std::string id, std::string path) {
    tables.ListAliases.Add(std::move(id)).SetSubItem(alias_cell::kPath, std::move(path));
}

/// `full_key` "a:b" is the sub-key b of a.
void AddKeyword(ListView& ListKeywords, std::string_view full_key, std::string targets) {
    const bool is_sub_key = Contains(full_key, ":");
    ListRow& row =
        ListKeywords.Add((is_sub_key ? "      " : "") + std::string(AfterLast(full_key, ':')));
    row.SetSubItem(keyword_cell::IDX_TITLEPATH, std::move(targets));
    row.SetSubItem(keyword_cell::IDX_FULLKEY, ReplaceAll(full_key, ":", kSubKeyMark));
}

std::string Crlf(std::string_view text) {
    return ReplaceAll(text, "\n", "\r\n");
}

std::string Head(const std::string& element, const std::string& type) {
    return Crlf("<?xml version='1.0' encoding='ISO-8859-1'  ?>\n<!DOCTYPE " + element +
                "\n  PUBLIC \"-//Sun Microsystems Inc.//DTD JavaHelp " + type +
                " Version 1.0//EN\"\n"
                "         \"http://java.sun.com/products/javahelp/" +
                element + "_1_0.dtd\">\n<" + element + " version=\"1.0\">\n\n");
}

TEST(HelpSetWriter, WritesAViewForWhatIsThere) {
    ProjectState project;
    project.proj = "C:\\p\\Guide.hs";
    project.project_title = "A < B & \"C\"";
    project.project_def_topic = "top";
    project.java_map_file = "C:\\p\\sub\\g.jhm";
    project.hhcfile = "C:\\p\\sub\\t.xml";
    project.hhkfile = "D:\\i.xml";
    const std::string top =
        Head("helpset", "HelpSet") +
        Crlf(
            "<!-- title -->\n<title>A < B & \"C\"</title>\n\n<!-- maps -->\n<maps>\n"
            "    <homeID>top</homeID>\n    <mapref location=\"sub/g.jhm\" />\n</maps>\n\n"
            "<!-- views -->\n");
    const std::string toc = Crlf(
        "<view>\n    <name>TOC</name>\n    <label>Table Of Contents</label>\n"
        "    <type>javax.help.TOCView</type>\n    <data>sub/t.xml</data>\n</view>\n\n");
    const std::string index = Crlf(
        "<view>\n    <name>Index</name>\n    <label>Index</label>\n"
        "    <type>javax.help.IndexView</type>\n    <data>D:/i.xml</data>\n</view>\n\n");
    const std::string search = Crlf(
        "<view>\n    <name>Search</name>\n    <label>Search</label>\n"
        "    <type>javax.help.SearchView</type>\n"
        "    <data engine=\"com.sun.java.help.search.DefaultSearchEngine\">\n"
        "     JavaHelpSearch</data>\n</view>\n\n");
    EXPECT_EQ(WriteHelpSet(project, false, false), top + "</helpset>\r\n");
    EXPECT_EQ(WriteHelpSet(project, true, false), top + toc + "</helpset>\r\n");
    project.javahelp_do_fts = true;
    EXPECT_EQ(WriteHelpSet(project, true, true), top + toc + index + search + "</helpset>\r\n");
}

TEST(MapWriter, PutsImagesFirstAndBookmarksLast) {
    TopicTables tables;
    AddAlias(tables, "mark", "C:\\p\\b.htm#m");
    AddAlias(tables, "icon", "C:\\p\\img\\i.GIF");
    AddAlias(tables, "png", "C:\\p\\i.png");
    AddAlias(tables, "in_name", "C:\\p\\a.jpg.htm#m");
    AddTopic(tables, "a", "A&", "C:\\p\\html\\sub\\a.htm");
    AddTopic(tables, "b", "", "D:\\b.htm");
    AddAlias(tables, "", "");
    AddAlias(tables, "web", "http:\\\\x\\y#z");
    EXPECT_EQ(WriteMap(tables, "C:\\p\\g.hs"),
              Head("map", "Map") +
                  Crlf("\n<!-- Images -->\n\n   <mapID target=\"icon\" url=\"img/i.GIF\"/>\n"
                       "   <mapID target=\"in_name\" url=\"a.jpg.htm#m\"/>\n\n<!-- Topics -->\n\n"
                       "   <mapID target=\"A&\" url=\"html/sub/a.htm\"/>\n"
                       "   <mapID target=\"\" url=\"D:/b.htm\"/>\n\n<!-- Index Bookmarks -->\n\n"
                       "   <mapID target=\"mark\" url=\"b.htm#m\"/>\n"
                       "   <mapID target=\"png\" url=\"i.png\"/>\n"
                       "   <mapID target=\"web\" url=\"http://x/y#z\"/>\n\n</map>\n"));
}

TEST(TocWriter, WritesBooksAndPages) {
    TreeView tree;
    EXPECT_EQ(WriteTocXml(tree), Head("toc", "TOC") + "</toc>\r\n");
    AddNode(tree, nullptr, "Page", "page_id");
    TreeNode& book = AddNode(tree, nullptr, "  <a> \"b\" & &lt; ", "", "ic\"on");
    AddNode(tree, &AddNode(tree, &book, "Sub", "s"), "Deep", "d", "i");
    tree.Add(&book, NodeRelation::kChild, "Book without children", 2, 2);
    EXPECT_EQ(WriteTocXml(tree),
              Head("toc", "TOC") +
                  Crlf("     <tocitem text=\"Page\" target=\"page_id\"/>\n"
                       "     <tocitem text=\"&lt;a&gt; %22b%22 & &lt; \" image=\"ic\"on\">\n"
                       "          <tocitem text=\"Sub\" target=\"s\">\n"
                       "               <tocitem text=\"Deep\" image=\"i\" target=\"d\"/>\n"
                       "          </tocitem>\n"
                       "          <tocitem text=\"Book without children\"/>\n"
                       "     </tocitem>\n</toc>\n"));
}

TEST(TocWriter, ACaptionThatNamesAnAttributeComesBack) {
    TreeView tree;
    AddNode(tree, &AddNode(tree, nullptr, "Images", ""), "Map an image", "a");
    AddNode(tree, &tree.At(1), "The target=image", "text>a", "icon");
    TreeView read;
    ErrorLog log([](std::string_view) {});
    const std::string written = WriteTocXml(tree);
    ReadTocXml(written, {}, read, Trap(log, "test: "));
    EXPECT_EQ(WriteTocXml(read), written);
    EXPECT_EQ(read.At(1).Tag, PackNodeData("", "", ""));
    EXPECT_EQ(read.At(3).Tag, PackNodeData("", "text>a", "icon"));
}

class IndexWriter : public testing::Test {
  protected:
    IndexWriter() {
        AddTopic(tables, "A", "a", "C:\\p\\a.htm");
        AddTopic(tables, "B", "b", "C:\\p\\b.htm");
        AddAlias(tables, "mark", "C:\\p\\a.htm#m");
    }
    /// The items that the rows, "full key|targets", become.
    std::string Items(const Lines& rows) {
        ListView ListKeywords{3};  // unsorted, so that the rows stand as they are given
        for (const std::string& row : rows) {
            const std::size_t bar = row.find('|');
            std::string targets;
            for (const char target : row.substr(bar + 1)) targets += kTargets.at(target);
            AddKeyword(ListKeywords, row.substr(0, bar), targets);
        }
        const std::string text = WriteIndexXml(ListKeywords, tables);
        const std::string head = Head("index", "Index");
        EXPECT_TRUE(text.starts_with(head) && text.ends_with("</index>\r\n")) << text;
        return text.substr(head.size(), text.size() - head.size() - 10);
    }

    const std::map<char, std::string> kTargets{
        {'a', "A>c:\\P\\A.htm;:"},   {'b', "B > or not>C:\\p\\b.htm;:"},
        {'m', "A>C:\\p\\a.htm#M;:"}, {'g', "gone>C:\\p\\gone.htm;:"},
        {'s', "k>SEE ALSO: b>;:"},   {'-', "C:\\p\\a.htm"}};
    TopicTables tables;
};

TEST_F(IndexWriter, WritesALinePerTarget) {
    EXPECT_EQ(Items({}), "");
    EXPECT_EQ(Items({"none|", "gone|gs", "<\"k\">|amb", "whole|-"}),
              Crlf("     <indexitem text=\"none\"/>\n"
                   "     <indexitem text=\"gone\"/>\n"
                   "     <indexitem text=\"&lt;%22k%22&gt;\" target=\"a\"/>\n"
                   "     <indexitem text=\"&lt;%22k%22&gt; (2)\" target=\"mark\"/>"
                   " <!-- QR IMULT -->\n"
                   "     <indexitem text=\"&lt;%22k%22&gt; (3)\" target=\"b\"/>"
                   " <!-- QR IMULT -->\n"
                   "     <indexitem text=\"whole\" target=\"a\"/>\n"));
}

TEST_F(IndexWriter, GroupsSubKeys) {
    const std::string group =
        "     <indexitem text=\"k\" target=\"a\">\n"
        "          <indexitem text=\"s\" target=\"a\"/>\n"
        "          <indexitem text=\"t\"/>\n";
    EXPECT_EQ(Items({"k|a", "k:s|a", "k:t|", "l|"}),
              Crlf(group + "</indexitem>\n     <indexitem text=\"l\"/>\n"));
    // The closing tag is written only when a following row ends the group.
    EXPECT_EQ(Items({"k|a", "k:s|a", "k:t|"}), Crlf(group));
    // Of several lines the last opens the group, though it is a repeat.
    EXPECT_EQ(Items({"k|ab", "k:s|", "l|"}),
              Crlf("     <indexitem text=\"k\" target=\"a\"/>\n"
                   "     <indexitem text=\"k (2)\" target=\"b\"> <!-- QR IMULT -->\n"
                   "          <indexitem text=\"s\"/>\n</indexitem>\n"
                   "     <indexitem text=\"l\"/>\n"));
    // A sub-key without its main key stands on the first level, and is no longer one.
    EXPECT_EQ(Items({"j|", "k:s|", "l|"}),
              Crlf("     <indexitem text=\"j\"/>\n     <indexitem text=\"s\"/>\n"
                   "     <indexitem text=\"l\"/>\n"));
    // There are two levels only.
    EXPECT_EQ(Items({"k|", "k:s|", "k:s:u|", "l|"}),
              Crlf("     <indexitem text=\"k\">\n          <indexitem text=\"s\"/>\n"
                   "          <indexitem text=\"u\"/>\n</indexitem>\n"
                   "     <indexitem text=\"l\"/>\n"));
    // A main key is looked for anywhere in the next key.
    EXPECT_EQ(Items({"k|", "mk:s|", "l|"}),
              Crlf("     <indexitem text=\"k\">\n          <indexitem text=\"s\"/>\n"
                   "</indexitem>\n     <indexitem text=\"l\"/>\n"));
}

TEST_F(IndexWriter, ATopicWithoutAnIdLeavesItsLineWithoutATarget) {
    tables.ListTopics.At(2).SetSubItem(topic_cell::kMapId, "");
    EXPECT_EQ(Items({"k|ab"}), Crlf("     <indexitem text=\"k\" target=\"a\"/>\n"
                                    "     <indexitem text=\"k (2)\"/> <!-- QR IMULT -->\n"));
}

TEST_F(IndexWriter, RefusesAFileBeyondAllBounds) {
    ListView ListKeywords{3};
    AddKeyword(ListKeywords, std::string(400, 'k'), kTargets.at('a') + kTargets.at('a'));
    EXPECT_NO_THROW((void)WriteIndexXml(ListKeywords, tables, XmlForm::kAsTyped, 2000));
    EXPECT_THROW((void)WriteIndexXml(ListKeywords, tables, XmlForm::kAsTyped, 800), RuntimeError);
    tables.ListTopics.At(1).SetSubItem(topic_cell::kMapId, std::string(900, 'a'));
    EXPECT_THROW((void)JavaIndexTargets(ListKeywords.At(1), tables, 800), RuntimeError);
}

class JavaHelpFiles : public test::ProjectFixture {
  protected:
    JavaHelpFiles() {
        ProjectState& project = main.project;
        project.proj = folder.Windows("guide.hs");
        project.proj_path = folder.Windows("");
        project.project_title = "Sm\xC3\xB6rg\xC3\xA5s";
        project.project_def_topic = "a";
        AddTopic(main.topics, "A", "a", folder.Windows("html\\a.htm"));
        AddNode(main.contents.Tree1, nullptr, kCaption, "a");
        AddKeyword(main.keywords.ListKeywords, "key", "A>" + folder.Windows("html\\a.htm") + ";:");
    }
    void WriteAll(bool changed = true) {
        main.contents.toc_dirty = main.keywords.index_dirty = changed;
        JavaWriteTOC(main);
        JavaWriteIndex(main);
        JavaWriteMapFile(main);
        JavaWriteHelpSetFile(main);
    }

    // A letter of ISO-8859-1, a dash that only its Windows relative has, one of neither.
    static constexpr const char* kCaption = "\xC3\xA9 \xE2\x80\x93 \xD0\x96";
    static constexpr std::array kFiles{"guide.hs", "guide.jhm", "guideTOC.xml", "guideIndex.xml"};
};

TEST_F(JavaHelpFiles, AreNamedByTheProject) {
    WriteAll(false);
    EXPECT_FALSE(folder.Exists("guideTOC.xml") || folder.Exists("guideIndex.xml"));
    for (const char* file : {"guide.hs", "guide.jhm"}) files.DeleteFile(folder.Windows(file));
    WriteAll();
    EXPECT_EQ(log_lines, Lines{});
    EXPECT_FALSE(main.contents.toc_dirty || main.keywords.index_dirty);
    EXPECT_NE(folder.Read("guide.hs").find("<data>guideIndex.xml</data>"), npos);
    EXPECT_NE(folder.Read("guide.hs").find("<title>Sm\xF6rg\xE5s</title>"), npos);
    const std::string contents = folder.Read("guideTOC.xml");
    EXPECT_TRUE(contents.starts_with("<?xml version='1.0' encoding='UTF-8'  ?>\r\n"));
    EXPECT_NE(contents.find("text=\"" + std::string(kCaption) + "\" target=\"a\""), npos);
    for (const char* file : kFiles) {
        EXPECT_FALSE(folder.Exists(std::string(file) + ".bak")) << file;
        EXPECT_FALSE(folder.Exists(std::string(file) + ".tmp")) << file;
    }
}

TEST_F(JavaHelpFiles, HaveABackupButTheContents) {
    for (const char* file : kFiles) {
        folder.Write(file, "before");
        folder.Write(std::string(file) + ".bak", "long before");
    }
    WriteAll();
    for (const char* file : {"guide.hs.bak", "guide.jhm.bak", "guideIndex.xml.bak"}) {
        EXPECT_EQ(folder.Read(file), "before") << file;
    }
    EXPECT_FALSE(folder.Exists("guideTOC.xml.bak"));
    EXPECT_TRUE(folder.Read("guideTOC.xml").ends_with("</toc>\r\n"));
    EXPECT_EQ(log_lines, Lines{"MainForm JavaWriteTOC: 53 File not found"});
}

TEST_F(JavaHelpFiles, ThatCannotBeWrittenAreLoggedAndTheOldOnesStay) {
    for (const char* file : kFiles) {
        folder.Write(file, "before");
        folder.Write(std::string(file) + ".tmp/in the way", "");
    }
    folder.Write("guideTOC.xml.bak", "long before");
    WriteAll();
    for (const char* file : kFiles) EXPECT_EQ(folder.Read(file), "before") << file;
    EXPECT_TRUE(folder.Exists("guideTOC.xml.bak"));
    EXPECT_TRUE(main.contents.toc_dirty && main.keywords.index_dirty);
    ASSERT_EQ(log_lines.size(), 4U);
    const Lines labels{"MainForm JavaWriteTOC: ", "MainForm JavaWriteIndex: ",
                       "MainForm JavaWriteMapFile: ", "MainForm JavaWriteHelpSetFile: "};
    for (std::size_t i = 0; i < 4; ++i) EXPECT_TRUE(log_lines[i].starts_with(labels[i]));
}

TEST_F(JavaHelpFiles, OfTheSampleAreWrittenAsTheyWere) {
    const std::filesystem::path sample(QUORREL_SAMPLES_FOLDER "/javahelp");
    std::filesystem::copy(sample, folder.Native("s"), std::filesystem::copy_options::recursive);
    Open("s/sourdough.hs", "");
    const Lines names{"s/sourdough.hs", "s/sourdough.jhm", "s/sourdoughTOC.xml",
                      "s/sourdoughIndex.xml"};
    Lines before;
    for (const std::string& name : names) before.push_back(folder.Read(name));
    WriteAll();
    for (std::size_t i = 0; i < names.size(); ++i) EXPECT_EQ(folder.Read(names[i]), before[i]);
    EXPECT_TRUE(folder.Exists("s/sourdoughIndex.xml.bak"));
}

}  // namespace
}  // namespace quorrel
