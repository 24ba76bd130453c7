// The two forms of the texts in JavaHelp files, and the offer to change from one to the other.
#include "project/xml_form.hpp"

#include "formats/javahelp/xml_items.hpp"
#include "platform/text.hpp"
#include "project/save_project.hpp"
#include "project/side_files.hpp"
#include "support/project_fixture.hpp"

namespace quorrel::test {
namespace {

TEST(XmlForm, EscapedTextsComeBackWhateverTheyHold) {
    for (const char* text : {"Q&A", "a &amp; b", "&#8211;&#38;", "<b> \"q\" 'x' %22 &lt;", "&",
                             "&&;", "]]>", "&quot", "…Ж&é", "&eacute;"}) {
        for (const std::string& written :
             {XmlValue(text, XmlForm::kEscaped), XmlContent(text, XmlForm::kEscaped)}) {
            EXPECT_EQ(TextFromXml(written, XmlForm::kEscaped), text);
        }
    }
    EXPECT_EQ(XmlValue("a<&\">", XmlForm::kEscaped), "a&lt;&amp;&quot;&gt;");
    EXPECT_EQ(XmlContent("a<&\">", XmlForm::kEscaped), "a&#60;&#38;\"&#62;");
    EXPECT_EQ(TextFromXml("&eacute;&#x41;&hellip; & &no; &amp", XmlForm::kEscaped),
              "éA… & &no; &amp");
}

class XmlFormOffer : public ProjectFixture {
  protected:
    XmlFormOffer() {
        folder.Write("p/a.htm", "<title>A</title><body>a</body>");
        folder.Write("p/g.hs",
                     "<title>R & D</title><homeID>a</homeID><mapref location=\"g.jhm\"/>\n"
                     "<view><data>gTOC.xml</data><type>javax.help.TOCView</type></view>\n"
                     "<view><data>gIndex.xml</data><type>javax.help.IndexView</type></view>\n");
        folder.Write("p/g.jhm", "<mapID target=\"a\" url=\"a.htm\"/>\n");
        folder.Write("p/gTOC.xml",
                     "<tocitem text=\"Q&A &lt;1&gt;\" target=\"a\"/>\n"
                     "<tocitem text=\"x &amp; y\"/>\n");
        folder.Write("p/gIndex.xml", "<indexitem text=\"AT&T &amp; more\" target=\"a\"/>\n");
        Open("p/g.hs", "");
    }
    void Save(MessageAnswer answer) {
        screen.ExpectMessage(
            "JavaHelp viewers cannot read signs such as \"&\" as they are typed in this "
            "project:\r\n"
            "\r\nTitle: R & D\r\nContents: Q&A &lt;1&gt;\r\nIndex: AT&T &amp; more\r\n\r\n"
            "Write them as XML does (\"&amp;\") from now on? Viewers then show what you see here.",
            answer);
        FileSave_Click(main);
    }
    [[nodiscard]] bool Holds(const char* file, const char* text) const {
        return Contains(folder.Read(file), text);
    }
};

TEST_F(XmlFormOffer, IsMadeOnceAndRefusedChangesNothing) {
    Save(MessageAnswer::kNo);
    main.contents.toc_dirty = main.keywords.index_dirty = true;
    FileSave_Click(main);
    EXPECT_TRUE(Holds("p/g.hs", "<title>R & D</title>"));
    EXPECT_TRUE(Holds("p/gTOC.xml", "text=\"Q&A &lt;1&gt;\""));
    EXPECT_TRUE(Holds("p/gIndex.xml", "text=\"AT&T &amp; more\""));
    EXPECT_EQ(GetProj(main, "Settings", "xml_escapes", ""), "");
    Open("p/g.hs", "");
    Save(MessageAnswer::kNo);
}

TEST_F(XmlFormOffer, TakenHoldsForTheProjectFromThenOn) {
    Save(MessageAnswer::kYes);
    for (int opened = 0; opened < 2; ++opened) {
        EXPECT_TRUE(Holds("p/g.hs", "<title>R &#38; D</title>"));
        EXPECT_TRUE(Holds("p/gTOC.xml", "text=\"Q&amp;A &lt;1&gt;\""));
        EXPECT_TRUE(Holds("p/gTOC.xml", "text=\"x &amp; y\""));
        EXPECT_TRUE(Holds("p/gIndex.xml", "text=\"AT&amp;T &amp; more\""));
        EXPECT_EQ(main.project.project_title, "R & D");
        EXPECT_EQ(main.contents.Tree1.At(1).Text, "Q&A <1>");
        EXPECT_EQ(main.contents.Tree1.At(2).Text, "x & y");
        EXPECT_EQ(main.keywords.ListKeywords.At(1).Text(), "AT&T & more");
        EXPECT_EQ(main.topics.ListTopics.At(1).SubItems(topic_cell::kKeywords), "AT&T & more;");
        Open("p/g.hs", "");
        main.contents.toc_dirty = main.keywords.index_dirty = true;
        FileSave_Click(main);
    }
    EXPECT_EQ(GetProj(main, "Settings", "xml_escapes", ""), "1");
}

TEST_F(XmlFormOffer, HoldsForAProjectThatIsConverted) {
    folder.Write("h/a.htm", "<title>A</title>");
    folder.Write("h/g.hhp", "[OPTIONS]\nTitle=T\n[FILES]\na.htm\n");
    folder.Write("h/g.hhc",
                 "<LI>\n<param name=\"Name\" value=\"Q&amp;A\">\n"
                 "<param name=\"Local\" value=\"a.htm\">\n</OBJECT>\n");
    folder.Write("h/g.hhk", "");
    folder.Write("h/g.prj", "[Settings]\nxml_escapes=1\n");
    Open("h/g.hhp", "");
    EXPECT_EQ(main.contents.Tree1.At(1).Text, "Q&A");
    FileSave_Click(main);
    EXPECT_TRUE(Holds("h/gTOC.xml", "text=\"Q&amp;A\""));
}

}  // namespace
}  // namespace quorrel::test
