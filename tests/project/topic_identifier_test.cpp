// A topic's identifier and what refers to it.
#include "contents/node_data.hpp"
#include "formats/javahelp/index_xml.hpp"
#include "project/save_project.hpp"
#include "project/topic_properties.hpp"
#include "support/project_fixture.hpp"

namespace quorrel::test {
namespace {

class TopicIdentifier : public ProjectFixture {
  protected:
    void SetUp() override {
        for (const char* file : {"a.htm", "b.htm", "c.htm"}) {
            folder.Write(file, std::string("<title>") + file + "</title><body>text of a topic");
        }
        folder.Write("g.hs",
                     "<helpset><title>G</title><maps><homeID>a</homeID>"
                     "<mapref location=\"g.jhm\"/></maps>"
                     "<view><type>javax.help.TOCView</type><data>gTOC.xml</data></view>"
                     "<view><type>javax.help.IndexView</type><data>gIndex.xml</data></view>"
                     "</helpset>");
        folder.Write("g.jhm", Map("a", "b"));
        folder.Write("gTOC.xml",
                     "<tocitem text=\"A\" target=\"a\"/>\n<tocitem text=\"M\" target=\"a_m\"/>\n"
                     "<tocitem text=\"B\" target=\"b\"/>\n");
        folder.Write("gIndex.xml", "<indexitem text=\"key\" target=\"a\"/>\n");
    }
    static std::string Map(const std::string& first, const std::string& second) {
        return "<mapID target=\"" + first + "\" url=\"a.htm\"/>\n<mapID target=\"" + second +
               "\" url=\"b.htm\"/>\n<mapID target=\"" + first + "_m\" url=\"a.htm#m\"/>\n";
    }
    void OpenTopicOf(const char* file) {
        main.editor.main_path = folder.Windows(file);
        LoadTopicProperties(main);
    }
    void TypeIdentifier(const char* id) {
        main.window.EditAlias.Text = std::string(id);
        SaveTopicProperties(main);
    }
    [[nodiscard]] std::string Ids() {
        std::string ids;
        const TopicTables& topics = main.topics;
        for (int i = 1; i <= topics.ListTopics.Count(); ++i) {
            ids += topics.ListTopics.At(i).SubItems(topic_cell::kMapId) + " ";
        }
        for (int i = 1; i <= topics.ListAliases.Count(); ++i) {
            ids += topics.ListAliases.At(i).Text() + " ";
        }
        for (int i = 1; i <= main.contents.Tree1.Count(); ++i) {
            ids += UnpackNodeData(main.contents.Tree1.At(i).Tag).target + " ";
        }
        return ids + main.project.project_def_topic;
    }
};

TEST_F(TopicIdentifier, ChangesWhereverItStands) {
    Open("g.hs", "");
    EXPECT_EQ(Ids(), "a b a_m a a_m b a");
    OpenTopicOf("a.htm");
    TypeIdentifier("start");
    EXPECT_EQ(Ids(), "start b start_m start start_m b start");
    EXPECT_TRUE(FileSave_Click(main));
    Open("g.hs", "");
    EXPECT_EQ(Ids(), "start b start_m start start_m b start");
    EXPECT_EQ(UnpackNodeData(main.contents.Tree1.At(1).Tag).location, folder.Windows("a.htm"));
    EXPECT_EQ(JavaIndexTargets(main.keywords.ListKeywords.At(1), main.topics), "start;");
}

TEST_F(TopicIdentifier, OfAnotherTopicIsRefused) {
    Open("g.hs", "");
    OpenTopicOf("a.htm");
    for (const char* taken : {"B", "A_M"}) {
        screen.ExpectMessage("The MapID \"" + std::string(taken) +
                             "\" is used already. This topic keeps \"a\".");
        TypeIdentifier(taken);
        EXPECT_EQ(main.window.EditAlias.Text(), "a");
    }
    TypeIdentifier("A");
    EXPECT_EQ(Ids(), "A b A_m A A_m b A") << "another case of its own";
}

TEST_F(TopicIdentifier, ThatWasEmptiedIsMadeAnewAtOnce) {
    Open("g.hs", "");
    OpenTopicOf("a.htm");
    TypeIdentifier("start");
    TypeIdentifier("");
    EXPECT_EQ(Ids(), "a b a_m a a_m b a");
}

TEST_F(TopicIdentifier, DoubleOrEmptyIsRepairedAtOpening) {
    folder.Write("g.jhm", "<mapID target=\"a\" url=\"c.htm\"/>\n" + Map("", "a"));
    screen.ExpectMessage(
        "Parts of this project are written in a way that cannot be taken over in full, and a save "
        "leaves them out. The first save that replaces one of these files keeps the old one with "
        "\".orig\" behind its name.\r\n\r\ng.jhm: identifiers that two topics have (1)");
    Open("g.hs", "");
    EXPECT_EQ(Ids().substr(0, 9), "a2 a a21 ") << "the rows 2 and 1 were in the way";
}

}  // namespace
}  // namespace quorrel::test
