#include "documents/topic_report.hpp"

#include <array>

#include "support/project_fixture.hpp"

namespace quorrel::test {
namespace {

class Report : public ProjectFixture {
  protected:
    Report() {
        main.project.proj = folder.Windows("book.hhp");
        main.project.project_title = "Bread & butter";
        for (const char* name : {"Not Specified", "Draft"}) main.window.ComboStatus.AddItem(name);
    }
    void AddRow(const std::string& title, const std::string& path, const std::string& keywords) {
        ListRow& row = main.topics.ListTopics.Add(title);
        row.SetSubItem(topic_cell::kMapId, "IDH_" + title);
        row.SetSubItem(topic_cell::kInteger, "1000");
        row.SetSubItem(topic_cell::kKeywords, keywords);
        row.SetSubItem(topic_cell::kFullPath, folder.Windows(path));
    }
    static std::string LastLines(const std::string& text, int lines) {
        std::size_t start = text.size();
        for (int i = 0; i <= lines && start != std::string::npos; ++i)
            start = text.rfind('\n', start - 1);
        return text.substr(start + 1);
    }
};

TEST_F(Report, TellsEachTopicOnceInBothFiles) {
    folder.Write("book.stn", "[status]\r\nrye.htm=1,soft||crust\r\n[other]\r\nplain.htm=1,no\r\n");
    AddRow("Rye", "html/rye.htm", "Bread;Bread    :rye##dark;");
    const TopicReport report = ComposeReport(main, "today");
    EXPECT_EQ(report.text.substr(0, report.text.find('\n')),
              "Topic Title\tMapID\tFile Path\tIndex Keywords\tStatus\tNotes\r");
    EXPECT_EQ(LastLines(report.text, 1),
              "Rye\tIDH_Rye\thtml\\rye.htm\tBread, Bread   : rye#dark\tDraft\tsoft crust \r\n");
    EXPECT_EQ(LastLines(report.html, 9),
              "<a name=\"html\\rye.htm\">\r\n"
              "<table border=0 width=100% cellpadding=4 cellspacing=1 bgcolor=#808080>\r\n"
              "<tr><td bgcolor=#D7D7D7><b>Topic Title:</b> Rye</td></tr>\r\n"
              "<tr><td bgcolor=#FFFFFF><b>MapID:</b> IDH_Rye</td></tr>\r\n"
              "<tr><td bgcolor=#FFFFFF><b>File Path:</b> <a href=\"html\\rye.htm\" "
              "target=_blank>html\\rye.htm</a></td></tr>\r\n"
              "<tr><td bgcolor=#FFFFFF><b>Index Keywords:</b> Bread, Bread   : rye#dark</td></tr>"
              "\r\n<tr><td bgcolor=#FFFFFF><b>Status:</b> Draft<br><b>Notes: </b>soft crust</td>"
              "</tr>\r\n</table><br>\r\n</BODY></HTML>\r\n");
    main.settings.is_javahelp_edition = false;
    const TopicReport html_help = ComposeReport(main, "today");
    EXPECT_TRUE(LastLines(html_help.text, 1).starts_with("Rye\tIDH_Rye\t1000\thtml\\rye.htm\t"));
    EXPECT_NE(html_help.html.find("</a></td></tr>\r\n<tr><td bgcolor=#FFFFFF><b>Context ID:</b> "
                                  "1000</td></tr>\r\n"),
              std::string::npos);
}

TEST_F(Report, AStatusIsTakenAsItIsStored) {
    const std::array<std::array<const char*, 2>, 6> cases = {{{"", "Not Specified\t \r\n"},
                                                              {"1", "Not Specified\t \r\n"},
                                                              {"1,a||b", "Draft\ta b \r\n"},
                                                              {",ab", "Not Specified\tab \r\n"},
                                                              {",a", "Not Specified\t \r\n"},
                                                              {"7,x", "\tx \r\n"}}};
    for (std::size_t i = 0; i < cases.size(); ++i) {
        const std::string name = "t" + std::to_string(i) + ".htm";
        ASSERT_TRUE(main.profiles.Set(folder.Windows("book.stn"), "status", {{name, cases[i][0]}}));
        AddRow("Topic " + std::to_string(i), name, "");
    }
    std::string expected;
    for (std::size_t i = 0; i < cases.size(); ++i) {
        const std::string number = std::to_string(i);
        expected +=
            "Topic " + number + "\tIDH_Topic " + number + "\tt" + number + ".htm\t\t" + cases[i][1];
    }
    EXPECT_EQ(LastLines(ComposeReport(main, "now").text, 6), expected);
}

TEST_F(Report, WritesItsFolderAndKeepsAStyleSheetOfTheAuthor) {
    folder.Write("templates/report.css", "shipped");
    main.settings.Template_Dir = folder.Windows("templates");
    WriteReport(main);
    EXPECT_EQ(folder.Read("report/report.css"), "shipped");
    EXPECT_NE(folder.Read("report/report.htm").find("<b>Total Number of Topics: </b>0\r\n"),
              std::string::npos);
    folder.Write("report/report.css", "own");
    folder.Write("report/report.txt", "old");
    WriteReport(main);
    EXPECT_EQ(folder.Read("report/report.css"), "own");
    EXPECT_TRUE(folder.Read("report/report.txt").starts_with("Topic Title\t"));
}

}  // namespace
}  // namespace quorrel::test
