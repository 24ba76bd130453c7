#include "formats/htmlhelp/hhp.hpp"

#include "platform/text.hpp"
#include "support/project_fixture.hpp"

namespace quorrel {
namespace {

/// Reads the list; files named here have a title of their own.
class FileList : public testing::Test {
  protected:
    using Lines = std::vector<std::string>;
    Lines Read(std::string_view text) {
        tables.ListTopics.Clear();
        first = ReadFileList(
            text, "C:\\p", tables.ListTopics,
            [](const std::string& path) -> std::optional<std::string> {
                if (Contains(path, "missing")) return std::nullopt;
                return "T:" + std::string(AfterLast(path, '\\'));
            },
            Trap(log, "test: "));
        Lines rows;
        for (int i = 1; i <= tables.ListTopics.Count(); ++i) {
            const ListRow& row = tables.ListTopics.At(i);
            rows.push_back(row.Text() + "|" + row.SubItems(topic_cell::kLocation) + "|" +
                           row.SubItems(topic_cell::kFullPath));
        }
        return rows;
    }

    ErrorLog log{[this](std::string_view line) { log_lines.emplace_back(line); }};
    TopicTables tables;
    std::string first;
    Lines log_lines;
};

TEST_F(FileList, TakesTitlesFromTheListOrTheFile) {
    EXPECT_EQ(Read("[OPTIONS]\na.htm\n[FILES]\n  b.htm \n;Title=B; [x]\n\nc/d.htm\nmissing.htm\n"
                   "e.htm\n\n[MAP]\nf.htm\n"),
              (Lines{"B; [x]|\\b.htm|C:\\p\\b.htm", "T:d.htm|\\c\\d.htm|C:\\p\\c\\d.htm",
                     "T:e.htm|\\e.htm|C:\\p\\e.htm"}));
    EXPECT_EQ(first, "C:\\p\\b.htm");
}

TEST_F(FileList, SupportFilesAreNoTopicsInTheirFixedOrder) {
    EXPECT_EQ(Read("[FILES]\nrtex.gif\nmaster.js\na.htm\nrtex.gif\ndwnex.gif\nhtmlhelp.css\n"
                   "master.js\nb.htm\nRTEX.GIF\n\n[ALIAS]\n"),
              (Lines{"T:a.htm|\\a.htm|C:\\p\\a.htm", "T:b.htm|\\b.htm|C:\\p\\b.htm",
                     "T:RTEX.GIF|\\RTEX.GIF|C:\\p\\RTEX.GIF"}));
}

TEST_F(FileList, EndsAtABracketOrWithTheFile) {
    const Lines a{"A|\\a.htm|C:\\p\\a.htm"};
    EXPECT_EQ(Read("[FILES]\na.htm\n;Title=A\nx[1].htm\nb.htm\n\n"), a);
    // The last line is lost when it was only looked ahead at.
    EXPECT_EQ(Read("[FILES]\na.htm\nb.htm").size(), 1U);
    EXPECT_EQ(Read("[FILES]\na.htm\n;Title=A\nb.htm").size(), 2U);
    EXPECT_EQ(Read("[FILES]\na.htm\nb.htm\n;Title=B\n").size(), 2U);
    EXPECT_EQ(log_lines, Lines{});
    // Behind a support file another line is wanted.
    EXPECT_EQ(Read("[FILES]\na.htm\n;Title=A\nmissing\nrtex.gif"), a);
    EXPECT_EQ(log_lines, (Lines{"test: 62 Input past end of file"}));
}

class ProjectFile : public test::ProjectFixture {
  protected:
    ProjectFile() {
        ProjectState& project = main.project;
        project.proj = folder.Windows("guide.hhp");
        project.proj_path = folder.Windows();
        project.hhcfile = folder.Windows("toc.hhc");
        project.hhkfile = folder.Windows("guide.hhk");
        project.project_title = "Guide & more";
        project.project_def_topic = folder.Windows("a.htm");
        AddTopic("B", "html/b.htm");
        AddTopic("A <1>", "a.htm");
    }
    void AddTopic(std::string title, std::string_view name) {
        ListRow& row = main.topics.ListTopics.Add(std::move(title));
        row.SetSubItem(topic_cell::kFullPath, folder.Windows(name));
    }
    static constexpr std::string_view kOwned =
        "Compiled file=guide.chm\r\nContents file=toc.hhc\r\nIndex file=guide.hhk\r\n"
        "Title=Guide & more\r\nDefault topic=a.htm\r\nError log file=compiler.log\r\n";
    static constexpr std::string_view kLists =
        "\r\n[FILES]\r\na.htm\r\n;Title=A <1>\r\nhtml\\b.htm\r\n;Title=B\r\n"
        "rtex.gif\r\ndwnex.gif\r\nhtmlhelp.css\r\nmaster.js\r\n"
        "\r\n[ALIAS]\r\n#include guide.ali\r\n\r\n[MAP]\r\n#include guide.h\r\n";
    std::string Write(std::string_view old_text) {
        folder.Write("guide.hhp", old_text);
        HTMLWriteProjectFile(main);
        return folder.Read("guide.hhp");
    }
};

TEST_F(ProjectFile, ANewOneGainsACompiledFileLineWithEachSave) {
    HTMLWriteProjectFile(main);
    const std::string start = "[OPTIONS]\r\nCompatibility=1.1\r\nCompiled file=guide.chm\r\n";
    const std::string once = start + "Full-text search=Yes\r\n" + std::string(kOwned);
    EXPECT_EQ(folder.Read("guide.hhp"), once + std::string(kLists));
    EXPECT_EQ(main.project.java_map_file, folder.Windows("guide.h"));
    HTMLWriteProjectFile(main);
    EXPECT_EQ(folder.Read("guide.hhp"), start +
                                            "Full-text search=Yes\r\nCompiled file=guide.chm\r\n" +
                                            std::string(kOwned) + std::string(kLists));
    EXPECT_EQ(folder.Read("guide.hhp.bak"), once + std::string(kLists));
    EXPECT_FALSE(folder.Exists("guide.hhp.tmp"));
}

TEST_F(ProjectFile, ForeignSectionsAndOptionsStay) {
    const std::string text = Write(
        "; note\n\n[OPTIONS]\nLanguage=0x409\ntitle=old\nAuto Index=Yes\nDisplay "
        "Title=no\n[Files]\n"
        "x.htm\n[WINDOWS]\nmain=\"a\",[1,2]\n\n[alias]\nX=y\n[INFOTYPES]\nt\n");
    EXPECT_EQ(text,
              "; note\r\n[OPTIONS]\r\nLanguage=0x409\r\nAuto Index=Yes\r\n" + std::string(kOwned) +
                  "[WINDOWS]\r\nmain=\"a\",[1,2]\r\n[INFOTYPES]\r\nt\r\n" + std::string(kLists));
}

TEST_F(ProjectFile, OptionsAtTheEndOrNowhereGetNoBlock) {
    EXPECT_EQ(Write("[OPTIONS]\nTitle=x\nFlat=1\n"),
              "[OPTIONS]\r\nFlat=1\r\n" + std::string(kLists));
    EXPECT_EQ(Write("Title=x\n"), "Title=x\r\n" + std::string(kLists));
}

TEST_F(ProjectFile, ABracketInAnOptionEndsTheSection) {
    EXPECT_EQ(
        Write("[OPTIONS]\nTitle=[draft\nFlat=1\n"),
        "[OPTIONS]\r\n" + std::string(kOwned) + "Title=[draft\r\nFlat=1\r\n" + std::string(kLists));
}

TEST_F(ProjectFile, AnUnreadableOneIsNotReplaced) {
    std::filesystem::create_directory(folder.Native("guide.hhp"));
    HTMLWriteProjectFile(main);
    EXPECT_TRUE(std::filesystem::is_directory(folder.Native("guide.hhp")));
    EXPECT_FALSE(folder.Exists("guide.hhp.tmp"));
    ASSERT_FALSE(log_lines.empty());
    EXPECT_EQ(log_lines.back(), "MainForm JavaWriteHelpSetFile: 70 Permission denied");
}

}  // namespace
}  // namespace quorrel
