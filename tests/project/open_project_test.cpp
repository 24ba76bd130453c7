#include "project/open_project.hpp"

#include "app/startup.hpp"
#include "contents/node_data.hpp"
#include "platform/text.hpp"
#include "project/open_topic.hpp"
#include "support/project_fixture.hpp"

namespace quorrel {
namespace {

class OpenProject : public test::ProjectFixture {
  protected:
    /// Two topics, a contents file with a heading first, an index, aliases and numbers.
    void WriteProject() {
        folder.Write(
            "p/guide.hhp",
            "[OPTIONS]\nTitle=Guide\nContents file=TOC.hhc\nIndex file=sub\\i.hhk\n[FILES]\n"
            "html\\b.htm\n;Title=Bee\nHTML\\a.htm\n\n[ALIAS]\n#include guide.ali\n[MAP]\n"
            "#include guide.h\n");
        folder.Write("p/Html/A.HTM", "<html><title>Ay</title><body>text of a</body></html>");
        folder.Write("p/Html/b.htm", "<html><body>text of b</body></html>");
        folder.Write(
            "p/toc.HHC",
            "<UL>\n<LI>\n<param name=Name value=Head>\n</OBJECT>\n<UL>\n<LI>\n"
            "<param name=Name value=A>\n<param name=Local value=html/a.htm#x>\n</OBJECT>\n");
        folder.Write("p/sub/i.hhk",
                     "<LI>\n<param name=Name value=key>\n<param name=Local value=html\\a.htm>\n"
                     "</OBJECT>\n");
        folder.Write("p/guide.ali", "IDH_A=html\\a.htm\n");
        folder.Write("p/guide.h", "#define IDH_A 7\n");
    }
    static constexpr std::string_view kProject = "p/guide.hhp";
};

TEST_F(OpenProject, FillsTheModelAndOpensTheFirstTopic) {
    WriteProject();
    Open(kProject);
    EXPECT_EQ(log_lines, std::vector<std::string>{});
    ASSERT_EQ(main.topics.ListTopics.Count(), 2);
    const ListRow& a = main.topics.ListTopics.At(1);
    EXPECT_EQ(a.SubItems(topic_cell::kMapId), "IDH_A");
    EXPECT_EQ(a.SubItems(topic_cell::kInteger), "7");
    EXPECT_EQ(a.SubItems(topic_cell::kLocation), "\\HTML\\a.htm");
    EXPECT_EQ(a.SubItems(topic_cell::kKeywords), "key;");
    EXPECT_EQ(main.topics.ListTopics.At(2).SubItems(topic_cell::kMapId), "b");
    EXPECT_EQ(main.project.project_def_topic, folder.Windows("p/html/b.htm"));
    EXPECT_EQ(main.project.hhkfile, folder.Windows("p/sub/i.hhk"));
    EXPECT_EQ(main.contents.Tree1.SelectedItem(), &main.contents.Tree1.At(2));
    EXPECT_TRUE(main.contents.Tree1.At(1).Expanded);
    EXPECT_EQ(surface.DocumentHTML(), folder.Read("p/Html/A.HTM"));
    EXPECT_EQ(main.window.StatusBar1.Panel(1), "Ay");
    EXPECT_EQ(main.window.StatusBar1.Panel(2), folder.Native("p/html/a.htm"));
    EXPECT_EQ(main.window.window.Caption(), "Quorrel HTML Help Edition - Guide");
    EXPECT_TRUE(main.project.recent_proj.empty());
}

TEST_F(OpenProject, IsConvertedInMemoryByTheJavaHelpEdition) {
    WriteProject();
    Open(kProject, "");
    EXPECT_EQ(main.project.proj, folder.Windows("p/guide.hs"));
    EXPECT_EQ(main.project.hhcfile, folder.Windows("p/guideTOC.xml"));
    EXPECT_EQ(main.project.java_map_file, folder.Windows("p/guide.jhm"));
    EXPECT_EQ(main.project.project_def_topic, "a_htm_x");
    EXPECT_TRUE(main.contents.toc_dirty && main.keywords.index_dirty);
    EXPECT_FALSE(main.project.project_dirty);
    EXPECT_EQ(main.topics.ListAliases.At(1).Text(), "a_htm_x");
}

TEST_F(OpenProject, ReadsAsFarAsItCan) {
    const std::string loss = "\r\nguide.hhp: entries of [FILES] that are no topics (1 of 1)";
    folder.Write("p/guide.hhp", "[FILES]\nmissing.htm\n");
    screen.ExpectMessageWith(loss);
    Open(kProject);
    EXPECT_EQ(log_lines, (std::vector<std::string>{"MainForm ReadTOC: 53 File not found",
                                                   "MainForm ReadIndex: 53 File not found"}));
    EXPECT_EQ(main.project.project_title, "Untitled");
    // A tree without a location runs off its end.
    folder.Write("p/guide.hhc", "<LI>\n<param name=Name value=x>\n</OBJECT>\n");
    screen.ExpectMessageWith(loss);
    Open(kProject);
    EXPECT_EQ(log_lines.back(), "MainForm OpenProject Click: 35600 Index out of bounds");
    EXPECT_TRUE(main.project.proj_success);
}

TEST_F(OpenProject, NothingOfTheProjectBeforeStays) {
    WriteProject();
    folder.Write("p/guide.out", "<LI>\n<param name=Name value=Doc>\n</OBJECT>\n");
    Open(kProject);
    EXPECT_EQ(main.outline.TreeDoc.Count(), 1);
    folder.Write("q/other.hhp", "[OPTIONS]\nTitle=Other\n[FILES]\n");
    main.project.recent_proj = folder.Windows("q/other.hhp");
    OpenProject_Click(main);
    EXPECT_EQ(main.topics.ListTopics.Count() + main.contents.Tree1.Count() +
                  main.keywords.ListKeywords.Count() + main.outline.TreeDoc.Count(),
              0);
    EXPECT_EQ(main.project.java_map_file, "");
    EXPECT_EQ(main.editor.main_path, "");
    EXPECT_EQ(main.window.window.Caption(), "Quorrel HTML Help Edition - Other");
}

TEST_F(OpenProject, TheFolderOfNewTopicsComesFromTheSideFile) {
    WriteProject();
    folder.Write("p/guide.prj", "[Settings]\nhtml=Pages\nimages=Pics\n");
    Open(kProject);
    EXPECT_EQ(main.project.Images_Subdir, "Pics");
    EXPECT_EQ(main.project.last_file_path, folder.Windows("p") + "\\Pages");
    // A folder that is gone is replaced by that of the project opened before.
    folder.Write("p/guide.prj", "[Settings]\nlast_path=" + folder.Windows("gone") + "\n");
    Open(kProject);
    EXPECT_EQ(main.project.last_file_path, folder.Windows("p"));
}

TEST_F(OpenProject, ACancelledDialogChangesNothing) {
    WriteProject();
    Open(kProject);
    screen.ExpectFileDialog("");
    OpenProject_Click(main);
    EXPECT_EQ(screen.LastFileDialog().filter, "HTML Help Project Files (*.hhp)|*.hhp");
    EXPECT_EQ(main.topics.ListTopics.Count(), 2);
}

TEST_F(OpenProject, ARemoteFirstItemIsOnlyTold) {
    WriteProject();
    folder.Write(
        "p/toc.HHC",
        "<LI>\n<param name=Name value=W>\n<param name=Local value=https://x>\n</OBJECT>\n");
    screen.ExpectMessage("This item is linked to the remote URL: https://x");
    Open(kProject);
    EXPECT_EQ(main.editor.main_path, "");
}

TEST_F(OpenProject, ATopicIsNamedInFullOrBelowTheProject) {
    WriteProject();
    Open(kProject);
    OpenTopic(main, folder.Windows("p/html/b.htm") + "#mark");
    EXPECT_EQ(surface.DocumentHTML(), folder.Read("p/Html/b.htm"));
    OpenTopic(main, "html\\a.htm#mark");
    OpenTopic(main, "#only a mark");
    EXPECT_EQ(main.editor.main_path, folder.Windows("p/html/a.htm"));
}

TEST_F(OpenProject, TheWorkingCopyIsLoadedWhenTheTopicIsMissing) {
    WriteProject();
    std::filesystem::remove(folder.Native("p/Html/A.HTM"));
    folder.Write("p/Html/a.htm.tmp.htm", "copy");
    folder.Write("p/guide.hhp", "[OPTIONS]\nContents file=toc.hhc\n[FILES]\n");
    screen.ExpectMessageWith(
        "\r\nguide.ali: lines of a file that the project does not include (1)");
    Open(kProject);
    EXPECT_EQ(surface.DocumentHTML(), "copy");
    EXPECT_EQ(main.editor.main_path, folder.Windows("p/html/a.htm"));
}

TEST_F(OpenProject, TheCodePageIsThatOfTheProject) {
    folder.Write(
        "p/guide.hhp",
        "[OPTIONS]\nLanguage=0x419 Russian\nTitle=\xC6\n[FILES]\na.htm\n;Title=\xC6\nb.htm\n\n");
    folder.Write("p/b.htm", "<title>\xC6</title>");
    Open(kProject);
    EXPECT_EQ(main.project.project_title, "\xD0\x96");
    EXPECT_EQ(main.topics.ListTopics.At(2).Text(), "\xD0\x96");
}

TEST_F(OpenProject, TheArrowPicturesAreCopiedAndNeverReplaced) {
    WriteProject();
    folder.Write("home/Topic Templates/htmlhelp/rtex.gif", "new");
    folder.Write("home/Topic Templates/htmlhelp/dwnex.gif", "new");
    folder.Write("settings/qrrl_hj.ini",
                 "[Locations]\nmain dir=" + folder.Windows("home") + "\\\n");
    folder.Write("p/dwnex.gif", "mine");
    Open(kProject);
    EXPECT_EQ(folder.Read("p/rtex.gif"), "new");
    EXPECT_EQ(folder.Read("p/dwnex.gif"), "mine");
}

TEST_F(OpenProject, ALostRecentEntryIsToldAndStays) {
    LoadSettings(main, "html");
    main.recent.recent_list[0] = folder.Windows("gone.hhp") + "|Gone";
    screen.ExpectMessage("Cannot find file " + folder.Native("gone.hhp") + ".");
    recent_Click(main, 0);
    EXPECT_FALSE(main.recent.recent_list[0].empty());
}

TEST_F(OpenProject, DamagedFilesAreReadAsFarAsTheyGo) {
    const std::string ten_megabytes(10'000'000, 'x');
    const std::string nul(1, '\0');
    struct Case {
        std::string text;
        const char* warning;
    };
    const Case cases[] = {
        {"[FILES]\r#include\r" + ten_megabytes + "\r;Title=" + ten_megabytes, "entries of [FILES]"},
        {"[OPTIONS]\nTitle=a" + nul + "b\n[FILES]\na" + nul +
             ".htm\n[ALIAS]\n#include guide.hhp\n[MAP]\n#include guide.hhp",
         "options (1 of 1)"},
        {"\xEF\xBB\xBF[OPTIONS]\nTitle=\xC3\xA9\n", "options (1 of 1)"},
        {"\xFF\xFE[" + nul, "guide.hhc: comments and other texts"},
        {std::string(200000, '[') + "\n" + std::string(200000, '='),
         "guide.hhc: comments and other texts"}};
    for (const auto& [text, warning] : cases) {
        folder.Write("p/guide.hhp", text);
        folder.Write("p/guide.hhc", text);
        folder.Write("p/guide.hhk",
                     "<LI>\r<param name=name value=\"" + ten_megabytes + "\">\r" + text);
        screen.ExpectMessageWith(warning);
        Open(kProject);
        EXPECT_TRUE(main.project.proj_success);
    }
}

}  // namespace
}  // namespace quorrel
