// The readers of the four JavaHelp files.

#include "contents/node_data.hpp"
#include "formats/javahelp/helpset.hpp"
#include "formats/javahelp/index_xml.hpp"
#include "formats/javahelp/jhm.hpp"
#include "formats/javahelp/toc_xml.hpp"
#include "formats/javahelp/xml_items.hpp"
#include "platform/text.hpp"
#include "project/paths.hpp"
#include "support/model_text.hpp"
#include "support/project_fixture.hpp"

namespace quorrel {
namespace {

using Lines = std::vector<std::string>;

TEST(HelpSet, IsReadAcrossLineEnds) {
    ProjectState project;
    project.proj_path = "C:\\p";
    ReadHelpSet(
        "<?xml version='1.0'?>\n<Title>My\nHelp &amp;</TITLE>\n<homeID>top</homeID>\n"
        "<mapref\n location=\"a/m.jhm\" /><mapref location=\"n.jhm\"/>\n"
        "<view><type>javax.help.TOCView</type><data>t.xml</data></view>\n"
        "<VIEW><data engine=\"com.SearchEngine\">S</data></VIEW>\n"
        "<view><type>x.IndexView</type><data>sub/i.xml</data></view><view><data>no end</data>",
        project);
    EXPECT_EQ(project.project_title, "My Help &amp;");
    EXPECT_EQ(project.project_def_topic, "top");
    EXPECT_EQ(project.java_map_file, "C:\\p\\a\\m.jhm");
    EXPECT_EQ(project.hhcfile, "C:\\p\\t.xml");
    EXPECT_EQ(project.hhkfile, "C:\\p\\sub\\i.xml");
    EXPECT_TRUE(project.javahelp_do_fts);
}

TEST(HelpSet, WhatItDoesNotSayStays) {
    ProjectState project;
    project.proj_path = "C:\\p";
    project.hhcfile = "C:\\p\\old.xml";
    ReadHelpSet("<title x='1'>no</title><view><type>TOCVIEW</type><data x='1'>t.xml</data></view>",
                project);
    EXPECT_EQ(project.project_title, "");
    // Six characters behind "<data", whatever stands there.
    EXPECT_EQ(project.hhcfile, "C:\\p\\x='1'>t.xml");
    ReadHelpSet("<view><type>TOCVIEW</type></view><view>", project);
    EXPECT_EQ(project.hhcfile, "C:\\p\\x='1'>t.xml");
}

TEST(HelpSet, ManyOpenViewsCostOnePass) {
    ProjectState project;
    std::string text;
    for (int i = 0; i < 500000; ++i) text += "<view>";
    ReadHelpSet(text + "<data>x</data>TOCVIEW</view>", project);
    EXPECT_EQ(project.hhcfile, "\\x");
}

TEST(XmlAttribute, IsFoundByItsWholeNameOutsideOfQuotes) {
    const std::pair<const char*, const char*> cases[] = {
        {"<tocitem text=\"the target=x\" target=\"a\"/>", "a"},
        {"<tocitem text=\"Map a target\"/>", ""},
        {"<tocitem image=\"target\" retarget=\"b\" TARGET = \"a b\">", "a b"},
        {"<tocitem text='x > \"target\"' target='a\"b'/>", "a\"b"},
        {"<tocitem\ttext=\"a\"b\" c=d target=a/>", "a/"},
        {"<tocitem target=a image=b>", "a"},
        {"<tocitem target=\"a", ""},
        {"<tocitem target=\"a>", "a"},
        {"</tocitem><tocitem target=\"a\">", ""},
        {"<tocitem text=\"a\" target=\"b\"", ""},
        {"<tocitem = target= >", ""},
        {"target=\"a\"", ""},
        {"<", ""},
    };
    for (const auto& [tag, value] : cases) EXPECT_EQ(XmlAttribute(tag, 0, "TARGET"), value) << tag;
    EXPECT_EQ(XmlAttribute("<a target=\"b\"><a target=\"c\">", 1, "TARGET"), "c");
    EXPECT_EQ(XmlAttribute("<a>", 9, "TARGET"), "");
}

TEST(Map, PagesAreTopicsAndAllElseAliases) {
    TopicTables tables;
    ReadMap(
        "<map>\n <mapID target=\" b \" url=\"html/B.HTML\"/> <mapID target=\"x\" url=\"x.htm\"/>\n"
        "<MAPID url=\"missing.htm\" target=\"m\"/>\n<mapID target=\"i>url=j\" url=\"i.png\"/>\n"
        "<mapID target=\"a\" url=\"b.html#c\"/>\n<mapID target=\"split\"\n url=\"y.htm\"/>\n",
        "C:\\p", tables.ListTopics, tables.ListAliases,
        [](const std::string& address) { return MakeFullPath(address, "C:\\p"); },
        [](const std::string& path) -> std::optional<std::string> {
            if (Contains(path, "missing")) return std::nullopt;
            return "T " + path;
        });
    ASSERT_EQ(tables.ListTopics.Count(), 1);
    const ListRow& topic = tables.ListTopics.At(1);
    EXPECT_EQ(topic.Text() + "|" + topic.SubItems(1) + "|" + topic.SubItems(2),
              "T C:\\p\\html\\B.HTML|b|\\html\\B.HTML");
    Lines aliases;
    for (int i = 1; i <= tables.ListAliases.Count(); ++i) {
        aliases.push_back(tables.ListAliases.At(i).Text() + "|" +
                          tables.ListAliases.At(i).SubItems(1));
    }
    EXPECT_EQ(aliases, (Lines{"i>url=j|C:\\p\\i.png", "a|C:\\p\\b.html#c", "|"}));
}

class Items : public testing::Test {
  protected:
    Items() {
        ListRow& topic = tables.ListTopics.Add("Title A");
        topic.SetSubItem(topic_cell::kMapId, "a");
        topic.SetSubItem(topic_cell::kFullPath, "C:\\p\\a.htm");
        tables.ListAliases.Add("mark").SetSubItem(alias_cell::kPath, "C:\\p\\a.htm#m");
    }
    std::string Toc(std::string_view text) {
        tree.Clear();
        ReadTocXml(text, tables, tree, Trap(log, "test: "));
        return test::TreeText(tree.Roots());
    }
    Lines Index(std::string_view text) {
        keywords.ListKeywords.Clear();
        ReadIndexXml(text, keywords, tables, Trap(log, "test: "));
        return test::KeywordRows(keywords.ListKeywords);
    }

    ErrorLog log{[this](std::string_view line) { log_lines.emplace_back(line); }};
    Lines log_lines;
    TopicTables tables;
    TreeView tree;
    KeywordState keywords;
};

TEST_F(Items, ContentsNestByTheLines) {
    EXPECT_EQ(
        Toc("<toc>\n<tocitem text=\"B &lt;\" target=\"mark\">\n <tocitem text=\"P\" image=\"i\" "
            "target=\"a\"/>\n"
            " <tocitem>Plain</tocitem>\n</tocitem><tocitem target=\"A\" "
            "text=\"x\"/>\n<tocitem/>\n</toc>"),
        "B &lt;2{C:\\p\\a.htm#m#^#mark#^##^#}(P3{C:\\p\\a.htm#^#a#^#i#^#} Plain3{#^##^##^#} "
        "Untitled3{#^##^##^#}) Untitled3{#^##^##^#}");
    // A comment that ends in "/>" takes a level off, and what follows has no place.
    EXPECT_EQ(Toc("<!-- <x/> -->\n<tocitem text=\"a\"/>\n"), "");
    EXPECT_EQ(log_lines, (Lines{"test: 9 Subscript out of range"}));
}

TEST_F(Items, ContentsEndAtLevelThirtyOne) {
    std::string text;
    for (int i = 0; i < 10000; ++i) text += "<tocitem text=\"x\">\n";
    Toc(text);
    EXPECT_EQ(tree.Count(), 31);
}

TEST_F(Items, IndexItemsBecomeRows) {
    EXPECT_EQ(Index("<index>\n<indexitem text=\"a &lt;1&gt; %22q%22\" target=\"a\"/>\n"
                    "<indexitem text=\"a (2)\" target=\"mark\"/> <!-- QR IMULT -->\n"
                    "<indexitem text=\"b\">\n<indexitem text=\"c\" target=\"a\"/>\n<indexitem "
                    "target=\"none\">d</indexitem>\n"
                    "</indexitem>\n<indexitem text=\"e\"/>\n"),
              (Lines{"a <1> \"q\"|a <1> \"q\"|Title A>C:\\p\\a.htm;:mark>C:\\p\\a.htm#m;:", "b|b|",
                     "      c|b    :c|Title A>C:\\p\\a.htm;:", "      d|b    :d|", "e|e|"}));
    EXPECT_EQ(tables.ListTopics.At(1).SubItems(topic_cell::kKeywords), "a <1> \"q\";b    :c;");
}

TEST_F(Items, ARepeatStandsForItsRow) {
    const std::string repeated =
        "<indexitem text=\"P\" target=\"mark\"/>\n"
        "<indexitem text=\"P (2)\" target=\"a\"> <!-- QR IMULT -->\n"
        "<indexitem text=\"s\"/>\n</indexitem>\n";
    EXPECT_EQ(Index(repeated + "<indexitem text=\"P (2)\"/>\n"),
              (Lines{"P|P|mark>C:\\p\\a.htm#m;:Title A>C:\\p\\a.htm;:", "      s|P    :s|",
                     "P (2)|P (2)|"}));
    EXPECT_EQ(tables.ListTopics.At(1).SubItems(topic_cell::kKeywords), "P;");
    EXPECT_EQ(Index("<indexitem text=\"P\" target=\"a\"/> <!-- QR IMULT -->\n"), Lines{});
    EXPECT_EQ(log_lines, (Lines{"test: 91 Object variable or With block variable not set"}));
}

class HelpSetProject : public test::ProjectFixture {};

TEST_F(HelpSetProject, OpensWithItsFirstTopic) {
    folder.Write("p/g.hs",
                 "<?xml version='1.0' encoding='ISO-8859-1'  "
                 "?>\n<title>H\xE9&#1046;</title><homeID>a</homeID>\n"
                 "<mapref location=\"m.jhm\"/>\n<view><data>t.xml</data><type>javax.help.TOCView</type></view>\n"
                 "<view><data>i.xml</data><type>javax.help.IndexView</type></view>\n");
    folder.Write("p/m.jhm", "<mapID target=\"a\" url=\"html/a.htm\"/>\n");
    folder.Write("p/t.xml",
                 "<?xml version='1.0' encoding=\"utf-8\"?>\n<tocitem text=\"\xC3\xA9\"/>\n<tocitem "
                 "text=\"A\" target=\"a\"/>\n");
    folder.Write("p/i.xml", "<indexitem text=\"k\" target=\"a\"/>\n");
    folder.Write("p/HTML/A.htm", "<title> two\n  lines </title>");
    Open("p/g.hs", "");
    EXPECT_EQ(log_lines, Lines{});
    EXPECT_EQ(main.window.window.Caption(), "Quorrel JavaHelp Edition - H\xC3\xA9\xD0\x96");
    EXPECT_EQ(main.contents.Tree1.At(1).Text, "\xC3\xA9");
    EXPECT_EQ(main.topics.ListTopics.At(1).Text(), "two lines");
    EXPECT_EQ(surface.DocumentHTML(), folder.Read("p/HTML/A.htm"));
    folder.Write("p/g.hs", "<mapref location=\"m.jhm\"/><view><data>t.xml</data><type>javax.help.TOCView</type></view>");
    Open("p/g.hs", "");
    EXPECT_EQ(surface.DocumentHTML(), folder.Read("p/HTML/A.htm"));
    EXPECT_EQ(main.project.project_def_topic, "") << "a map id, and the author has named none";
}

}  // namespace
}  // namespace quorrel
