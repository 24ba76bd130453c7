#include "project/form_create_project.hpp"

#include "app/form_startup.hpp"
#include "app/startup.hpp"
#include "project/open_project.hpp"
#include "project/save_project.hpp"
#include "project/side_files.hpp"
#include "support/topic_fixture.hpp"

namespace quorrel::test {
namespace {

using NewProject = TopicFixture;

TEST_F(NewProject, OfHtmlHelpHasItsFirstTopicAndIsWrittenByTheFirstSave) {
    OpenDemo();
    SelectAndOpen("first.htm");
    main.window.TabStrip2.SelectedIndex = right_tab::kSource;
    source.SetText("<title>First</title><body>not to be kept");
    main.editor.TopicPropDirty = false;
    screen.ExpectMessage(
        "The current project has been modified.\r\n\r\nDo you want to save changes?",
        MessageAnswer::kNo);
    InDialog<FormCreateProject>("FormCreateProject", [&](FormCreateProject& form) {
        EXPECT_EQ(form.LabelProject.Caption(), "Help Project (.hhp) File");
        screen.ExpectFileDialog(folder.Windows("new/inner/guide"));
        form.Command1_Click();
        EXPECT_EQ(screen.LastFileDialog().title, "Create Project");
        EXPECT_EQ(screen.LastFileDialog().folder, folder.Windows("inst/projects"));
        EXPECT_FALSE(screen.LastFileDialog().asks_to_overwrite);
        form.OKButton_Click();
    });
    FileNewProject_Click(main);

    const ProjectState& project = main.project;
    const std::string base = folder.Windows("new/inner/guide");
    EXPECT_EQ(project.proj, base + ".hhp");
    EXPECT_EQ(project.hhcfile + project.hhkfile, base + ".hhc" + base + ".hhk");
    EXPECT_EQ(project.java_map_file, base + ".h");
    EXPECT_EQ(project.status_file, base + ".stn");
    EXPECT_EQ(main.window.window.Caption(), "Quorrel HTML Help Edition - Untitled");
    EXPECT_EQ(project.project_def_topic, folder.Windows("new/inner/FirstTopic.htm"));
    EXPECT_EQ(main.editor.main_path, project.project_def_topic);
    ASSERT_EQ(Topics().Count(), 1);
    EXPECT_EQ(Topics().At(1).SubItems(topic_cell::kMapId), "IDH_FirstTopic");
    EXPECT_EQ(Outline(), "FirstTopic3 ");
    EXPECT_TRUE(files.FolderExists(folder.Windows("new/inner/Images")));
    EXPECT_EQ(GetProj(main, "Settings", "images", ""), "Images");
    EXPECT_FALSE(folder.Exists("new/inner/guide.hhp"));
    EXPECT_EQ(folder.Read("demo/first.htm"), "<title>First</title><body>first");

    // Where the author is still.
    EXPECT_EQ(source.Text(), surface.DocumentHTML());
    source.SetText("<title>FirstTopic</title><body>typed in the source");
    FileSave_Click(main);
    EXPECT_EQ(folder.Read("new/inner/FirstTopic.htm"), source.Text());
    for (const char* ending : {".hhp", ".hhc", ".hhk", ".h", ".ali"}) {
        EXPECT_TRUE(folder.Exists(std::string("new/inner/guide") + ending)) << ending;
    }
    main.project.recent_proj = project.proj;
    OpenProject_Click(main);
    EXPECT_EQ(Topics().At(1).SubItems(topic_cell::kInteger), "1000");
}

TEST_F(NewProject, OfJavaHelpReplacesTheOldOneByItsFirstSave) {
    LoadSettings(main, "");
    folder.Write("java/guide.hs", "old");
    folder.Write("java/guideIndex.xml", "old");
    FormStartup startup(main);
    InDialog<FormCreateProject>("FormCreateProject", [&](FormCreateProject& form) {
        EXPECT_EQ(form.LabelTitle.Caption(), "HelpSet Title");
        form.EditProject.Text = folder.Windows("java/guide.hs");
        form.EditTitle.Text = std::string("Guide");
        for (const MessageAnswer answer : {MessageAnswer::kNo, MessageAnswer::kYes}) {
            EXPECT_EQ(main.project.proj, "");
            screen.ExpectMessage("A project with this name aleady exists. Overwrite it?", answer);
            form.OKButton_Click();
        }
    });
    startup.Command1_Click();
    EXPECT_TRUE(startup.closed);
    EXPECT_EQ(main.project.project_def_topic, "FirstTopic");
    EXPECT_EQ(main.project.hhcfile, folder.Windows("java/guideTOC.xml"));
    EXPECT_EQ(folder.Read("java/guide.hs"), "old");
    EXPECT_EQ(folder.Read("java/HTML/FirstTopic.htm").substr(0, 32),
              "<meta charset=utf-8><title>First");
    FileSave_Click(main);
    EXPECT_NE(folder.Read("java/guide.hs").find("<title>Guide</title>"), std::string::npos);
    EXPECT_NE(folder.Read("java/guideIndex.xml"), "old") << "the index as well";
}

TEST_F(NewProject, ReplacesNothingUnasked) {
    OpenDemo();
    SelectAndOpen("first.htm");
    surface.SetDocumentHTML("<title>First</title><body>edited");
    ASSERT_TRUE(SetDirty(main));
    folder.Write("other/guide.hhc", "mine");
    folder.Write("other/FirstTopic.htm", "mine too");
    screen.ExpectMessage(
        "The current project has been modified.\r\n\r\nDo you want to save changes?",
        MessageAnswer::kNo);
    InDialog<FormCreateProject>("FormCreateProject", [&](FormCreateProject& form) {
        form.EditProject.Text = folder.Windows("other/guide.hhp");
        for (const MessageAnswer answer : {MessageAnswer::kNo, MessageAnswer::kYes}) {
            EXPECT_TRUE(folder.Exists("demo/first.htm.tmp.htm"));
            screen.ExpectMessage("The new project would replace these files:\r\n\r\n" +
                                     folder.Native("other/guide.hhc") +
                                     "\r\n\r\nDo you want to replace them?",
                                 answer);
            if (answer == MessageAnswer::kYes) {
                screen.ExpectMessage("The file " + folder.Native("other/FirstTopic.htm") +
                                         " exists already.\r\n\r\nDo you want to replace it?",
                                     MessageAnswer::kNo);
                InNewTopic([](FormNewTopic& topic) {
                    topic.EditTitle.Text = std::string("Start");
                    topic.OkCmd_Click();
                });
            }
            form.OKButton_Click();
        }
    });
    FileNewProject_Click(main);
    EXPECT_FALSE(folder.Exists("demo/first.htm.tmp.htm"));
    EXPECT_EQ(folder.Read("other/FirstTopic.htm"), "mine too");
    EXPECT_EQ(main.project.project_def_topic, folder.Windows("other/Start.htm"));
}

TEST_F(NewProject, AFolderThatCannotBeMadeIsTold) {
    LoadSettings(main, "html");
    folder.Write("file", "");
    InDialog<FormCreateProject>("FormCreateProject", [&](FormCreateProject& form) {
        form.EditProject.Text = folder.Windows("file/inner/guide.hhp");
        screen.ExpectMessage("The folder " + folder.Native("file/inner") +
                             " could not be made.\r\n\r\nFormCreateProject OKButton_Click: 58 File "
                             "already exists");
        form.OKButton_Click();
    });
    FileNewProject_Click(main);
    EXPECT_EQ(main.project.proj, "");
}

}  // namespace
}  // namespace quorrel::test
