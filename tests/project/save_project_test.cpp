#include "project/save_project.hpp"

#include <filesystem>

#include "app/startup.hpp"
#include "editor/load_file.hpp"
#include "project/form_create_project.hpp"
#include "project/open_project.hpp"
#include "project/topic_properties.hpp"
#include "support/project_fixture.hpp"

namespace quorrel {
namespace {

class SaveProjectTest : public test::ProjectFixture {
  protected:
    void SetUp() override {
        folder.Write("p/guide.hhp",
                     "[OPTIONS]\nTitle=Guide\n[FILES]\na.htm\n;Title=Ay\nb.htm\n;Title=Bee\n");
        folder.Write("p/a.htm", kTopicA);
        folder.Write("p/b.htm", kTopicB);
        folder.Write(
            "p/guide.hhc",
            "<LI>\n<param name=Name value=A>\n<param name=Local value=a.htm>\n</OBJECT>\n");
        folder.Write("p/guide.hhk", "<UL>\n</UL>\n");
        Open("p/guide.hhp");
    }

    void Edit(std::string_view html) { surface.SetDocumentHTML(html); }
    void Leave(std::string_view for_topic) {
        main.editor.new_main_path = folder.Windows(for_topic);
        LoadFile(main);
    }
    /// The flag of the topic, which has its file name as identifier.
    std::string Flag(std::string_view id) {
        return main.topics.ListTopics.FirstWith(topic_cell::kMapId, id)
            ->SubItems(topic_cell::kModified);
    }

    static constexpr const char* kTopicA = "<title>Ay</title><body>text of topic a</body>\r\n";
    static constexpr const char* kTopicB = "<title>Bee</title><body>text of topic b</body>\n";
    static constexpr const char* kChanged = "<title>Ay</title><body>a topic that is changed";
    static constexpr const char* kQuestion =
        "The current project has been modified.\r\n\r\nDo you want to save changes?";
};

TEST_F(SaveProjectTest, EditsGoToWorkingCopiesAndASaveTakesThem) {
    Edit(kChanged);
    Leave("p/b.htm");
    EXPECT_EQ(folder.Read("p/a.htm"), kTopicA);
    EXPECT_EQ(folder.Read("p/a.htm.tmp.htm"), kChanged);
    EXPECT_EQ(Flag("a"), "1");
    Leave("p/a.htm");
    EXPECT_EQ(surface.DocumentHTML(), kChanged) << "the working copy is what is opened";

    FileSave_Click(main);
    EXPECT_EQ(folder.Read("p/a.htm"), kChanged);
    EXPECT_EQ(folder.Read("p/b.htm"), kTopicB);
    for (const char* copy : {"p/a.htm.tmp.htm", "p/b.htm.tmp.htm", "p/a.htm.bak"}) {
        EXPECT_FALSE(folder.Exists(copy)) << copy;
    }
    EXPECT_EQ(Flag("a"), "0");
    EXPECT_EQ(PromptSaveChanges(main), save_prompt::kNotNeeded);
    for (const char* file : {"guide.hhp", "guide.hhp.bak", "guide.hhk", "guide.ali", "guide.h"}) {
        EXPECT_TRUE(folder.Exists(std::string("p/") + file)) << file;
    }
    EXPECT_EQ(main.recent.recent_list.at(0), folder.Windows("p/guide.hhp") + "|Guide");
    EXPECT_EQ(log_lines, std::vector<std::string>{});
}

TEST_F(SaveProjectTest, ACopyOfNoMoreThanAnEmptyPageIsNotTaken) {
    for (const auto& [size, topic_exists, is_taken] :
         {std::tuple{25U, true, false}, {26U, true, true}, {3U, false, true}}) {
        const std::string text(size, 'x');
        Edit(text);
        if (!topic_exists) files.DeleteFile(folder.Windows("p/a.htm"));
        if (!is_taken) screen.ExpectMessage(TooShort("p/a.htm"));
        FileSave_Click(main);
        EXPECT_EQ(folder.Read("p/a.htm") == text, is_taken) << size;
        EXPECT_EQ(folder.Exists("p/a.htm.tmp.htm"), !is_taken) << size;
        EXPECT_EQ(Flag("a"), is_taken ? "0" : "1") << size;
    }
}

TEST_F(SaveProjectTest, BackupsOfTopicsAreMadeOnlyWhenAskedFor) {
    main.project.backup_all_html = true;
    folder.Write("p/a.htm.bak", "older");
    Edit(kChanged);
    FileSave_Click(main);
    EXPECT_EQ(folder.Read("p/a.htm.bak"), kTopicA);
}

TEST_F(SaveProjectTest, ThePromptSavesDiscardsOrStays) {
    Edit(kChanged);
    screen.ExpectMessage(kQuestion, MessageAnswer::kCancel);
    EXPECT_EQ(PromptSaveChanges(main), save_prompt::kCancelled);
    screen.ExpectMessage(kQuestion, MessageAnswer::kCancel);
    EXPECT_FALSE(Form_QueryUnload(main));
    EXPECT_EQ(surface.DocumentHTML(), kChanged);

    ASSERT_TRUE(SetDirty(main));
    screen.ExpectMessage(kQuestion, MessageAnswer::kNo);
    EXPECT_EQ(PromptSaveChanges(main), save_prompt::kDiscarded);
    EXPECT_TRUE(folder.Exists("p/a.htm.tmp.htm")) << "nothing has taken the project's place yet";
    screen.ExpectMessage(kQuestion, MessageAnswer::kNo);
    screen.ExpectFileDialog("");
    OpenProject_Click(main);
    EXPECT_TRUE(folder.Exists("p/a.htm.tmp.htm"));
    EXPECT_TRUE(main.project.project_dirty);
    screen.ExpectMessage(kQuestion, MessageAnswer::kCancel);
    EXPECT_TRUE(OpenRecentProject(main, main.project.proj));
    EXPECT_EQ(main.project.recent_proj, "") << "it is not opened by the next command";
    EXPECT_EQ(surface.DocumentHTML(), kChanged);
    screen.ExpectMessage(kQuestion, MessageAnswer::kNo);
    EXPECT_TRUE(Form_QueryUnload(main));
    EXPECT_FALSE(folder.Exists("p/a.htm.tmp.htm"));
    EXPECT_EQ(folder.Read("p/a.htm"), kTopicA);

    Edit(kChanged);
    screen.ExpectMessage(kQuestion, MessageAnswer::kYes);
    EXPECT_TRUE(Form_QueryUnload(main));
    EXPECT_EQ(folder.Read("p/a.htm"), kChanged);
    EXPECT_EQ(PromptSaveChanges(main), save_prompt::kNotNeeded);
}

TEST_F(SaveProjectTest, WorkOnAProjectWithoutAnOpenTopicIsAskedAboutToo) {
    for (bool* flag : {&main.project.project_dirty, &main.outline.doc_dirty}) {
        main.editor.main_path.clear();
        main.editor.ActiveDirty = false;
        *flag = true;
        screen.ExpectMessage(kQuestion, MessageAnswer::kCancel);
        EXPECT_FALSE(Form_QueryUnload(main));
        screen.ExpectMessage(kQuestion, MessageAnswer::kYes);
        EXPECT_TRUE(Form_QueryUnload(main));
        EXPECT_FALSE(*flag);
    }
}

TEST_F(SaveProjectTest, ASaveThatFailedIsNoSave) {
    folder.Write("share/master.js", "script");
    main.settings.Template_Dir = folder.Windows("share");
    Leave("p/b.htm");
    bool claimed = false;
    main.window.StatusBar1.changed.Connect(
        [&] { claimed = claimed || main.window.StatusBar1.Panel(1) == "Project Saved."; });
    struct Case {
        const char* in_the_way;  // a folder of this name
        std::string error;
    };
    for (const auto& [in_the_way, error] :
         {Case{"p/master.js",
               "SaveProject: 75 " + folder.Native("p/master.js") + " could not be made"},
          {"p/guide.hhc.tmp", "JavaWriteTOC: 70 Permission denied"},
          {"p/guide.hhk.tmp", "HTMLWriteIndex: 70 Permission denied"},
          {"p/guide.ali.tmp", "JavaWriteMapFile: 70 Permission denied"},
          {"p/guide.h.tmp", "JavaWriteMapFile: 70 Permission denied"},
          {"p/guide.hhp.tmp", "JavaWriteHelpSetFile: 70 Permission denied"},
          {"p/guide.out.tmp", "JavaWriteTOC: 70 Permission denied"}}) {
        SCOPED_TRACE(in_the_way);
        main.contents.toc_dirty = main.outline.doc_dirty = main.project.project_dirty = true;
        files.CreateFolder(folder.Windows(in_the_way));
        const auto expect_questions = [&] {
            screen.ExpectMessage(kQuestion, MessageAnswer::kYes);
            screen.ExpectMessage(
                "Not everything could be saved. The last error was:\r\n\r\nMainForm " + error);
        };
        claimed = false;
        expect_questions();
        EXPECT_FALSE(Form_QueryUnload(main));
        expect_questions();
        FileNewProject_Click(main);
        expect_questions();
        main.project.recent_proj = folder.Windows("p/guide.hhp");
        OpenProject_Click(main);
        EXPECT_EQ(main.editor.main_path, folder.Windows("p/b.htm")) << "nothing is opened";
        EXPECT_FALSE(claimed);
        std::filesystem::remove(folder.Native(in_the_way));
        EXPECT_TRUE(FileSave_Click(main));
        EXPECT_TRUE(claimed);
        EXPECT_FALSE(main.project.project_dirty);
    }
}

TEST_F(SaveProjectTest, SupportFilesComeFromTheTemplatesAndReplaceNothing) {
    folder.Write("share/master.js", "script");
    folder.Write("share/htmlhelp.css", "style");
    folder.Write("p/htmlhelp.css", "own style");
    main.settings.Template_Dir = folder.Windows("share");
    FileSave_Click(main);
    EXPECT_EQ(folder.Read("p/master.js"), "script");
    EXPECT_EQ(folder.Read("p/htmlhelp.css"), "own style");
}

TEST_F(SaveProjectTest, ATemplateIsSavedToItsOwnFile) {
    folder.Write("share/new.htm", "<title>[TITLE]</title>");
    main.editor.new_topic_template = "True";
    surface.LoadDocument(folder.Windows("share/new.htm"));
    Edit("<title>[TITLE]</title> changed");
    FileSave_Click(main);
    EXPECT_EQ(folder.Read("share/new.htm"), "<title>[TITLE]</title> changed");
    EXPECT_EQ(folder.Read("p/a.htm"), kTopicA);

    const char* question = "Do you want to save this topic template?";
    Edit("<title>[TITLE]</title> again");
    screen.ExpectMessage(question, MessageAnswer::kCancel);
    Leave("p/b.htm");
    EXPECT_EQ(surface.DocumentHTML(), "<title>[TITLE]</title> again");
    screen.ExpectMessage(question, MessageAnswer::kYes);
    Leave("p/b.htm");
    EXPECT_EQ(surface.DocumentHTML(), kTopicB);
    EXPECT_EQ(folder.Read("share/new.htm"), "<title>[TITLE]</title> again");
}

TEST_F(SaveProjectTest, AnEditedVersionOfARunThatEndedBadlyIsOffered) {
    const std::string question =
        folder.Native("p/b.htm") +
        " was edited and not saved when the program ended the last time.\r\n\r\nDo you want to go "
        "on with the edited version?";
    folder.Write("p/b.htm.tmp.htm", kChanged);
    screen.ExpectMessage(question, MessageAnswer::kNo);
    Leave("p/b.htm");
    EXPECT_EQ(surface.DocumentHTML(), kTopicB);
    EXPECT_EQ(folder.Read("p/b.htm.tmp.htm.bak"), kChanged);
    Leave("p/a.htm");
    FileSave_Click(main);

    folder.Write("p/b.htm.tmp.htm", kChanged);
    screen.ExpectMessage(question, MessageAnswer::kYes);
    Leave("p/b.htm");
    EXPECT_EQ(surface.DocumentHTML(), kChanged);
    FileSave_Click(main);
    EXPECT_EQ(folder.Read("p/b.htm"), kChanged);
}

class ForeignChange : public SaveProjectTest {
  protected:
    static constexpr const char* kForeign = "<title>Ay</title> what another program wrote";
    std::string Question(const std::string& name) {
        return folder.Native("p/" + name) +
               " has been changed by another program since it was opened.\r\n\r\nDo you want to "
               "replace it with your version? If not, your version stays beside it as " +
               name + ".tmp.htm.";
    }
};

TEST_F(ForeignChange, IsReplacedOnlyIfTheUserSaysSo) {
    folder.Write("p/a.htm", kForeign);
    FileSave_Click(main);
    EXPECT_EQ(folder.Read("p/a.htm"), kForeign) << "nothing was edited";
    Edit(kChanged);
    screen.ExpectMessage(Question("a.htm"), MessageAnswer::kNo);
    FileSave_Click(main);
    EXPECT_EQ(folder.Read("p/a.htm"), kForeign);
    EXPECT_EQ(folder.Read("p/a.htm.tmp.htm"), kChanged);
    screen.ExpectMessage(Question("a.htm"), MessageAnswer::kYes);
    FileSave_Click(main);
    EXPECT_EQ(folder.Read("p/a.htm"), kChanged);
    FileSave_Click(main);  // and is not asked about again
}

TEST_F(ForeignChange, OfAPageThatIsNoTopicIsAskedAboutToo) {
    folder.Write("p/extra.htm", "<p>a page that the project does not list");
    Leave("p/extra.htm");
    Edit(std::string(kChanged) + "!");
    FileSave_Click(main);
    EXPECT_EQ(folder.Read("p/extra.htm"), std::string(kChanged) + "!") << "it is saved as a topic";
    folder.Write("p/extra.htm", kForeign);
    Edit(kChanged);
    screen.ExpectMessage(Question("extra.htm"), MessageAnswer::kNo);
    Leave("p/b.htm");
    EXPECT_EQ(folder.Read("p/extra.htm"), kForeign);
    EXPECT_EQ(folder.Read("p/extra.htm.tmp.htm"), kChanged);
}

TEST_F(SaveProjectTest, PropertiesReachRowTitleTagAndStore) {
    main.window.TabStrip2.SelectedIndex = right_tab::kProperties;
    main.window.EditTitle.Text = "New name";
    main.window.EditAlias.Text = "IDH_NEW";
    main.window.EditInteger.Text = "12";
    main.window.ListKeys.AddItem("key:sub");
    main.editor.TopicPropDirty = true;
    FileSave_Click(main);
    EXPECT_EQ(folder.Read("p/a.htm"), "<title>New name</title><body>text of topic a</body>\r\n");
    EXPECT_EQ(folder.Read("p/guide.ali"), "b=b.htm\r\nIDH_NEW=a.htm\r\n");
    EXPECT_EQ(folder.Read("p/guide.h"), "#define IDH_NEW 12\r\n");
    const ListRow& row = main.topics.ListTopics.At(main.topics.current_topic_index);
    EXPECT_EQ(row.SubItems(topic_cell::kKeywords), "key    :sub;");
    EXPECT_EQ(main.keywords.ListKeywords.Count(), 2);

    // Renamed again, respelled, and a key taken off.
    LoadTopicProperties(main);
    ASSERT_EQ(main.window.ListKeys.List(), std::vector<std::string>{"key:sub"});
    main.window.EditTitle.Text = "Third";
    main.window.ListKeys.Clear();
    main.window.ListKeys.AddItem("key:SUB");
    SaveTopicProperties(main);
    const ListRow* sub =
        main.keywords.ListKeywords.FirstWith(keyword_cell::IDX_FULLKEY, "key    :sub");
    ASSERT_NE(sub, nullptr);
    EXPECT_EQ(sub->SubItems(keyword_cell::IDX_TITLEPATH),
              "Third>" + folder.Windows("p/a.htm") + ";:");
    EXPECT_EQ(main.project.help_mode, 1);
    main.window.ListKeys.Clear();
    SaveTopicProperties(main);
    EXPECT_EQ(main.keywords.ListKeywords.Count(), 0);
}

}  // namespace
}  // namespace quorrel
