// What the readers tell of files that hold more than a save keeps. What is harmless stands in the
// tables too, with nothing found.
#include <gtest/gtest.h>

#include "formats/htmlhelp/hhc.hpp"
#include "formats/htmlhelp/hhk.hpp"
#include "formats/htmlhelp/hhp_left_behind.hpp"
#include "formats/htmlhelp/map_files.hpp"
#include "formats/javahelp/helpset.hpp"
#include "formats/javahelp/helpset_left_behind.hpp"
#include "formats/javahelp/index_xml.hpp"
#include "formats/javahelp/jhm.hpp"
#include "formats/javahelp/toc_xml.hpp"
#include "platform/text.hpp"

namespace quorrel {
namespace {

class LeftBehindInFiles : public testing::Test {
  protected:
    LeftBehindInFiles() {
        project.proj = "C:\\p\\guide.hhp";
        project.proj_path = "C:\\p";
        project.hhcfile = "C:\\p\\guide.hhc";
        project.hhkfile = "C:\\p\\guide.hhk";
        project.java_map_file = "C:\\p\\guide.h";
        project.project_title = "Guide";
        project.project_def_topic = "C:\\p\\a.htm";
        AddTopic("a", "A", "1");
        AddTopic("b", "B", "");
    }
    void AddTopic(const std::string& name, std::string alias, std::string number) {
        ListRow& row = topics.Add(name);
        row.SetSubItem(topic_cell::kFullPath, "C:\\p\\" + name + ".htm");
        row.SetSubItem(topic_cell::kMapId, std::move(alias));
        row.SetSubItem(topic_cell::kInteger, std::move(number));
    }
    [[nodiscard]] std::string InProject(std::string_view text) const {
        return Listed(LeftBehindInProject(text, project, topics));
    }

    ProjectState project;
    ListView topics{8, 0};
    std::int64_t next_integer = 0;
};

struct Case {
    std::string_view text;
    std::string_view found;
};

TEST_F(LeftBehindInFiles, OfAProjectFile) {
    constexpr std::string_view kFiles = "[FILES]\na.htm\n;Title=a\nb.htm\n";
    const Case cases[] = {
        {"", ""},
        {"[OPTIONS]\nTITLE = \"Guide\"\nDefault Topic=a.htm\nContents file=GUIDE.hhc\n"
         "Compiled file=x.chm\nFlat=1\nTitle=\n\n[WINDOWS]\nm=\"t\",[1,2]\n; kept\n[Alias]\n"
         "#include x.ali\nA=A.HTM\n[MAP]\n#include <guide.h>\n#define A 1\n[TEXT POPUPS]\nx\n",
         ""},
        {"RTEX.GIF\nimg\\x.gif\n; note\n;Title=stray\nstyle.css\n",
         "entries of [FILES] that are no topics (2 of 4), comments and other lines (1)"},
        {"x[1].htm\nc.htm\n", "entries of [FILES] that are no topics (2 of 4)"},
        {"[ALIAS]\nA=a.htm\nB2=b.htm\nC=c.htm\n;D=a.htm\nE\n#include x.ali\n#include y.ali\n",
         "aliases inside [ALIAS] (2 of 3), #include lines beside another one (1 of 2), "
         "comments and other lines (2)"},
        {"[map]\n#define A 1\n#define A 2\n#define B 3\n;#define A 4\n// note\n",
         "#define lines inside [MAP] (2 of 3), comments and other lines (2)"},
        {"[OPTIONS]\nTitle=Other\nError log file=e.log\nDefault window=Subtitle\n; a title\n"
         "Index file=other.hhk\nFlat=1\n[X]\n",
         "options (4 of 5), comments and other lines (1)"},
        // Nothing is written into [OPTIONS] at the end of the file.
        {"[OPTIONS]\nTitle=Guide\nFlat=1\n", "options (1 of 2)"},
        {"[OPTIONS]\n; see [FILES]\nTitle=Guide\nFlat=1\n[X]\n",
         "options (2 of 2), comments and other lines (1)"}};
    for (const Case& it : cases) {
        EXPECT_EQ(InProject(std::string(kFiles).append(it.text)), it.found) << it.text;
    }
}

TEST_F(LeftBehindInFiles, OfAliases) {
    const Case cases[] = {
        {"A=a.htm\r\n \r\n\r\nB = B.htm\r\nA=a.htm\r\n", ""},
        {"A=a.htm\nA2=a.htm\nB=b.htm#x\nB=b.htm \n",
         "aliases of no topic (2 of 4), aliases of topics with another one (1 of 2)"},
        {"; note\n#include x\nA=a.htm\nX=\n", "comments and other lines (3)"}};
    for (const Case& it : cases) {
        for (int i = 1; i <= 2; ++i) topics.At(i).SetSubItem(topic_cell::kMapId, "");
        EXPECT_EQ(Listed(ReadAliases(it.text, project.proj, topics)), it.found) << it.text;
    }
}

TEST_F(LeftBehindInFiles, OfAHeader) {
    const Case cases[] = {
        {"#define A 1\n\n\t\n #define  b\t0x2\n#define A 1\n", ""},
        // A blank behind the number, which stands behind a tab, makes both the name.
        {"#define A 1\n#define X 2\n#define A 3\n#define B\t1 /* one */\n",
         "#define lines of no topic (2 of 4), #define lines of topics with another number (1 of "
         "2)"},
        {"/* note\n#define A 1\n*/ #define B 2 // #define A 5\n//#define A 1\n",
         "#define lines in comments, taken as numbers (2), comments and other lines (1)"},
        {"#ifndef G_H\n#define G_H\n#include \"x.h\"\n#endif // G_H\n",
         "comments and other lines (4)"}};
    for (const Case& it : cases) {
        for (int i = 1; i <= 2; ++i) topics.At(i).SetSubItem(topic_cell::kInteger, "");
        EXPECT_EQ(Listed(ReadMapHeader(it.text, topics, next_integer)), it.found) << it.text;
    }
}

class LeftBehindInSitemaps : public LeftBehindInFiles {
  protected:
    /// "N" and then its location, on lines of their own.
    static std::string Entry(std::string_view name, std::string_view more = {}) {
        return "<LI> <OBJECT type=\"text/sitemap\">\n<param name=\"Name\" value=\"" +
               std::string(name) + "\">\n" + std::string(more) + "</OBJECT>\n";
    }
    std::string InContents(std::string_view text) {
        TreeView tree;
        ListView aliases{2};
        std::string properties;
        return Listed(
            ReadContents(text, {"C:\\p\\g.hhc", false, topics, aliases, trap}, tree, properties));
    }
    std::string InIndex(std::string_view text) {
        KeywordState keywords;
        return Listed(ReadKeywords(text, "C:\\p", keywords, topics, trap));
    }

    ErrorLog log{[](std::string_view) {}};
    Trap trap{log, "test: "};
};

TEST_F(LeftBehindInSitemaps, WhatIsHarmlessIsNotTold) {
    const std::string head =
        "<!DOCTYPE HTML PUBLIC \"-//IETF//DTD HTML//EN\">\n<HTML>\n<HEAD>\n"
        "<meta name=\"GENERATOR\" content=\"Some program 4.1\">\n<!-- Sitemap 1.0 -->\n"
        "</HEAD><BODY>\n<OBJECT type=\"text/site properties\">\n\t<param name=\"a\" "
        "value=\"b\">\n</OBJECT>\n<ul>\n\n";
    const std::string tail = "</UL>\n</BODY></HTML>";
    EXPECT_EQ(
        InContents(head + Entry("a", "<PARAM NAME='x'\tvalue=\"1\"><param name=y value=2>\n") +
                   "<UL>\n\t<LI><object type='text/sitemap'>\n<param value=\"b <\" "
                   "name=name>\n<param name=\"Local\" value=\"\">\n</object></LI>\n</UL>\n" +
                   Entry("c", "<param name=New value=0>\n") + tail),
        "");
    EXPECT_EQ(
        InIndex(head + Entry("a", "<param name=Name value=t>\n<param name=Local value=a.htm>\n") +
                "<UL>\n" + Entry("b", "<param name=\"See Also\" value=\"a\">\n") + "</UL>\n" +
                Entry("c") + tail),
        "");
    // What says nothing has nothing to lose, and an object may be left out.
    EXPECT_EQ(InContents("<LI><OBJECT type=\"text/sitemap\"></OBJECT>\n<LI>\n<param name=Name "
                         "value=a>\n</OBJECT>\n"),
              "");
}

TEST_F(LeftBehindInSitemaps, WhatBothFilesLose) {
    const Case cases[] = {
        {"<LI><OBJECT type=\"text/sitemap\"><param name=\"Name\" value=\"a\"></OBJECT>\n",
         "entries not read whole (1 of 2)"},
        {"<OBJECT type=\"text/sitemap\">\n<param name=\"Name\" value=\"a\">\n</OBJECT>\n",
         "entries not read whole (1 of 2)"},
        {"<LI><OBJECT type=\"text/sitemap\">\n<param name=\"Name\"\nvalue=\"a\">\n</OBJECT>\n",
         "entries not read whole (1 of 2)"},
        {"<LI><OBJECT type=\"text/sitemap\">\n<param name=\"Name\" value=\"a > b\">\n</OBJECT>\n",
         "entries not read whole (1 of 2)"},
        {"<LI><OBJECT type=\"text/sitemap\">\n<param name=\"Name\" value=\"a\">\n",
         "entries not read whole (1 of 2)"},
        {"<LI><OBJECT type=\"text/sitemap\">\n<param name=\"Name\" value=\"a\">\n</OBJECT >\n",
         "entries not read whole (1 of 2)"},
        {"<LI><OBJECT type=\"text/sitemap\">\n<param name=ID value=1>\n<param name=Name "
         "value=a>\n</OBJECT>\n",
         "entries not read whole (1 of 2)"},
        {"<LI><OBJECT type=\"text/sitemap\">\n<param name=Merge value=\"x.hhc\">\n</OBJECT>\n",
         "entries not read whole (1 of 2)"},
        {"<!--\n<LI><OBJECT type=\"text/sitemap\">\n<param name=Name value=a>\n</OBJECT>\n-->\n",
         "commented-out entries that come alive (1), comments and other texts (1)"},
        {"<!-- note\n two -->\n<A href=x>text</A>\n", "comments and other texts (4)"},
        {"<UL>\n<UL>\n</UL></UL>\n<LI><OBJECT>\n<param name=Name value=a>\n</OBJECT>\n",
         "entries that come at another level (1 of 2)"}};
    for (const Case& it : cases) {
        for (const bool is_first : {true, false}) {
            const std::string more = is_first ? "" : Entry("z");
            const std::string text = (is_first ? Entry("z") : "") + std::string(it.text) + more;
            if (!is_first && it.text.starts_with("<UL>")) continue;
            EXPECT_EQ(InContents(text), it.found) << text;
            EXPECT_EQ(InIndex(text), it.found) << text;
        }
    }
}

TEST_F(LeftBehindInSitemaps, WhatOneOfThemLoses) {
    const auto local = [](std::string_view path) {
        return "<param name=\"Local\" value=\"" + std::string(path) + "\">\n";
    };
    EXPECT_EQ(InContents(Entry("a", local("a.htm") + "<param name=Name value=b>\n")),
              "entries not read whole (1 of 1)");
    EXPECT_EQ(InContents(Entry("a", "<param name=FrameName value=\"f,g\">\n") +
                         Entry("b", "<param name=New value=1>\n<param name=New value=2>\n") +
                         Entry("c", local("a.htm") + local("b.htm"))),
              "entries not read whole (2 of 3)");
    const std::string title = "<param name=Name value=t>\n";
    EXPECT_EQ(InIndex(Entry("a", "<param name=Comment value=x>\n") + Entry("b", title + title) +
                      Entry("c", title) + Entry("d", title + local("a.htm") + local("b.htm")) +
                      Entry("e", title + local("a.htm") + "<param name=\"See Also\" value=a>\n")),
              "entries not read whole (4 of 5)");
    std::string deep;
    for (int i = 0; i < 4; ++i) deep += Entry("x") + "<UL>\n";
    EXPECT_EQ(InIndex(deep), "entries below level 2 (2 of 4)");
    EXPECT_EQ(InContents(deep), "");
    EXPECT_EQ(InIndex(Entry("  a")), "entries that come at another level (1 of 1)");
}

class LeftBehindInJavaHelp : public testing::Test {
  protected:
    LeftBehindInJavaHelp() {
        ListRow& row = tables.ListTopics.Add("a");
        row.SetSubItem(topic_cell::kFullPath, "C:\\p\\a.htm");
        row.SetSubItem(topic_cell::kMapId, "a");
        tables.ListAliases.Add("pic").SetSubItem(alias_cell::kPath, "C:\\p\\pic.png");
        tables.ListAliases.Add("place").SetSubItem(alias_cell::kPath, "C:\\p\\a.htm#x");
    }
    std::string InToc(std::string_view text) {
        TreeView tree;
        return Listed(ReadTocXml(text, tables, tree, trap));
    }
    std::string InIndex(std::string_view text) {
        KeywordState keywords;
        return Listed(ReadIndexXml(text, keywords, tables, trap));
    }
    static std::string InMap(std::string_view text) {
        ListView topics{8, 0};
        ListView aliases{2};
        return Listed(ReadMap(
            text, "C:\\p", topics, aliases, [](const std::string& address) { return address; },
            [](const std::string& path) -> std::optional<std::string> {
                if (Contains(path, "missing")) return std::nullopt;
                return "title";
            }));
    }
    static std::string InHelpSet(std::string_view text) {
        ProjectState project;
        project.proj = "C:\\p\\g.hs";
        project.proj_path = "C:\\p";
        ReadHelpSet(text, project);
        return Listed(
            LeftBehindInHelpSet(text, project, !project.hhcfile.empty(), !project.hhkfile.empty()));
    }

    ErrorLog log{[](std::string_view) {}};
    Trap trap{log, "test: "};
    TopicTables tables;
};

TEST_F(LeftBehindInJavaHelp, OfItems) {
    const std::string head =
        "<?xml version='1.0' encoding='UTF-8' ?>\n<!DOCTYPE x\n  PUBLIC \"-//X//EN\"\n  "
        "\"http://x/y.dtd\">\n\n";
    const Case both[] = {
        {"<X text=\"a > b &amp; &quot;c&quot;\" target='a' >\n\t<X target = \"place\" text=\"\"/>\n"
         "<X>Text</X>\n</X>\n",
         ""},
        {"<X text=\"a\" expand=\"true\" xml:lang='en'/>\n", "attributes that are not kept (2)"},
        {"<X text=\"a\"\n target=\"a\"/>\n<X text=\"b\"/><X text=\"c\"/>\n",
         "items not read whole (2 of 3)"},
        {"<!--\n<X text=\"a\"/>\n-->\n",
         "commented-out items that come alive (1), comments and other texts (1)"},
        {"<!-- note --> <?pi?>\n<!ENTITY e \"x\">\n text\n<y/>\n", "comments and other texts (5)"}};
    for (const auto& [root, item] :
         {std::pair("toc", "tocitem"), std::pair("index", "indexitem")}) {
        for (const Case& it : both) {
            const std::string text = head + "<" + root + " version=\"2.0\">\n" +
                                     ReplaceAll(ReplaceAll(it.text, "<X", std::string("<") + item),
                                                "</X", std::string("</") + item) +
                                     "</" + root + ">\n";
            EXPECT_EQ(*root == 't' ? InToc(text) : InIndex(text), it.found) << text;
        }
    }
    // The line of the closing tag counts for two levels, and its item is not read.
    EXPECT_EQ(
        InToc("<toc xml:lang=\"en\">\n<tocitem text=\"a\">\n<tocitem text=\"b\" image=\"pic\">\n"
              "</tocitem></tocitem>\n<tocitem text=\"c\"/>\n"),
        "items that come at another level (1 of 3), attributes that are not kept (1)");
    EXPECT_EQ(
        InIndex("<indexitem text=\"a\" target=\"a\">\n<indexitem text=\"b\" target=\"gone\">\n"
                "<indexitem text=\"c\" target=\"pic\"/>\n</indexitem>\n</indexitem>\n"
                "<indexitem text=\"a (2)\" target=\"a\"/> <!-- QR IMULT -->\n"),
        "items not read whole (2 of 4), items below level 2 (1 of 4), "
        "items that come at another level (1 of 4)");
}

TEST_F(LeftBehindInJavaHelp, OfAMap) {
    EXPECT_EQ(
        InMap("<map version=\"1.0\">\n<!-- Images -->\n <mapID target=\"a\" url=\"a.htm\" />\n"
              "<mapID target=\"b\" url=\"b.gif\"></mapID>\n</map>\n"),
        "");
    EXPECT_EQ(
        InMap("<mapID target=\"a\"\n url=\"a.htm\"/>\n<mapID target=\"b\" url=\"b.htm\"/>"
              "<mapID target=\"c\" url=\"c.htm\"/>\n<mapID target=\"d\" url=\"missing.htm\"/>\n"
              "<mapID target=\"b\" url=\"e.htm\" xml:lang=\"en\"/>\n<!-- note -->\n"),
        "map ids not read whole (2 of 5), attributes that are not kept (1), "
        "comments and other texts (1), map ids of pages that are missing or have no title "
        "(1 of 3)");
}

TEST_F(LeftBehindInJavaHelp, OfAHelpSet) {
    const Case cases[] = {
        {"<?xml version='1.0'?>\n<helpset version=\"1.0\">\n<!-- title "
         "-->\n<title>T</title>\n<maps>\n"
         "<homeID>a</homeID>\n<mapref "
         "location=\"sub\\m.jhm\"/>\n</maps>\n<view>\n<name>TOC</name>\n"
         "<label>Table Of Contents</label>\n<type>javax.help.TOCView</type>\n<data>t.xml</data>\n"
         "</view>\n<view><name>Search</name><label>Search</label><type>javax.help.SearchView</"
         "type>\n"
         "<data engine=\"com.sun.java.help.search.DefaultSearchEngine\">\n JavaHelpSearch\n</data>"
         "</view>\n</helpset>\n",
         ""},
        {"<view mergetype=\"m\"><name>toc</name><type>javax.help.TOCView</type><data>t.xml</data>"
         "</view>\n<view><type>x.MyIndexView</type><data>i.xml</data></view>\n"
         "<view><type>javax.help.GlossaryView</type><data>g.xml</data></view>\n",
         "views with a name, label, class or file of their own (3 of 3), "
         "attributes that are not kept (1)"},
        {"<presentation default=true><name>p</name><title>P</title>\n<!-- c --></presentation>\n"
         "<presentation/>\n<subhelpset location=\"o.hs\"/>\n<maps><mapref location=\"a.jhm\"/>"
         "<mapref location=\"b.jhm\"/></maps>\n<impl><x/></impl><!-- note --><?pi?>\n",
         "presentations (2), sub-helpsets (1), further maps (1), comments and other parts (3)"},
        {"<!-- <view><name>Search</name>\n<data engine=\"x.DefaultSearchEngine\">D</data></view> "
         "-->\n"
         "<title xml:lang=\"en\">T</title>\n",
         "commented-out views that come alive (1), title, home or map (1 of 1), "
         "attributes that are not kept (1), comments and other parts (1)"}};
    for (const Case& it : cases) EXPECT_EQ(InHelpSet(it.text), it.found) << it.text;
}

}  // namespace
}  // namespace quorrel
