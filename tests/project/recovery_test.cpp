// A run that ends badly leaves its work to the next one.
#include "project/recovery.hpp"

#include <chrono>
#include <filesystem>
#include <functional>
#include <set>

#include "app/startup.hpp"
#include "contents/contents_tree.hpp"
#include "contents/keyword_store.hpp"
#include "editor/load_file.hpp"
#include "project/form_recover.hpp"
#include "project/open_project.hpp"
#include "project/private_files.hpp"
#include "project/project_lists.hpp"
#include "project/save_project.hpp"
#include "project/unsaved_work.hpp"
#include "support/project_fixture.hpp"

namespace quorrel {
namespace {

namespace fs = std::filesystem;

enum class Family { kHtmlHelp, kJavaHelp };

/// One run of the program: it ends without a word where the object goes.
class Program {
  public:
    explicit Program(const test::ScratchFolder& folder) : folder_(folder) {
        files.flush_to_disk = false;
    }
    void Open(Family family) {
        const bool is_html = family == Family::kHtmlHelp;
        LoadSettings(main, is_html ? "html" : "");
        main.project.recent_proj = folder_.Windows(is_html ? "p/guide.hhp" : "p/guide.hs");
        OpenProject_Click(main);
    }
    void GoTo(std::string_view topic) {
        main.editor.new_main_path = folder_.Windows(topic);
        LoadFile(main);
    }
    std::string Lists() {
        std::string all;
        for (const ProjectList& list : ProjectLists()) all += list.text(main) + "\n";
        return all;
    }

    NativeFileSystem files;
    PlainSurface surface{files};
    test::ScriptedScreen screen;
    PlainSource source;
    SilentBrowser browser;
    SilentShell shell;

  private:
    const test::ScratchFolder& folder_;

  public:
    MainForm main{{files, screen, surface, source, browser, shell},
                  folder_.Windows("settings"),
                  MachineCodePage{}};
};

class Recovery : public testing::TestWithParam<Family> {
  protected:
    Recovery() {
        folder.Write("p/a.htm", kTopicA);
        folder.Write("p/b.htm", kTopicB);
        folder.Write("p/guide.hhp",
                     "[OPTIONS]\r\nTitle=Guide\r\n[FILES]\r\na.htm\r\n;Title=Ay\r\nb.htm\r\n"
                     ";Title=Bee\r\n");
        folder.Write("p/guide.hhc",
                     "<LI> <OBJECT type=\"text/sitemap\">\r\n<param name=\"Name\" value=\"A\">\r\n"
                     "<param name=\"Local\" value=\"a.htm\">\r\n</OBJECT>\r\n");
        folder.Write("p/guide.hhk", "<UL>\r\n</UL>\r\n");
        folder.Write("p/guide.hs",
                     "<title>Guide</title><mapref location=\"guide.jhm\"/>\n"
                     "<view><data>guideTOC.xml</data><type>javax.help.TOCView</type></view>\n"
                     "<view><data>guideIndex.xml</data><type>javax.help.IndexView</type></view>\n");
        folder.Write("p/guide.jhm",
                     "<mapID target=\"a\" url=\"a.htm\"/>\n<mapID target=\"b\" url=\"b.htm\"/>\n");
        folder.Write("p/guideTOC.xml", "<tocitem text=\"A\" target=\"a\"/>\n");
        folder.Write("p/guideIndex.xml", "<indexitem text=\"old key\" target=\"a\"/>\n");
    }

    /// Edits both topics and all lists, is killed, and gives the lists as they were.
    std::string WorkAndDie(Family family) {
        Program run(folder);
        run.Open(family);
        run.surface.SetDocumentHTML(kEditedA);
        run.GoTo("p/b.htm");
        run.surface.SetDocumentHTML(kEditedB);
        TreeView& tree = run.main.contents.Tree1;
        TreeNode& node = tree.Add(tree.Roots().front(), NodeRelation::kChild, "Inner", 1, 1);
        tree.Add(&node, NodeRelation::kChild, "Innermost", 3, 3).Tag = "x";
        tree.Add(nullptr, NodeRelation::kNext, "Last", 3, 3);
        SetContentsDirty(run.main);
        AddToIndex(run.main, "Ay", folder.Windows("p/a.htm"), "new key;");
        run.main.outline.TreeDoc.Add(nullptr, NodeRelation::kNext, "Heading", 3, 3);
        run.main.topics.ListTopics.FirstWith(topic_cell::kFullPath, folder.Windows("p/b.htm"))
            ->SetSubItem(topic_cell::kMapId, "IDH_B");
        run.main.project.project_title = "New title";
        KeepUnsavedWork(run.main);
        return run.Lists();
    }
    static void Expect(Program& run, std::function<void(FormRecover&)> work) {
        run.screen.ExpectForm("FormRecover", [work = std::move(work)](Form& form) {
            work(static_cast<FormRecover&>(form));
        });
    }
    static void TakeAll(FormRecover& form) { form.OKButton_Click(); }
    [[nodiscard]] std::string Names(const FormRecover& form) const {
        std::string names;
        for (const LeftWork& work : form.works) {
            names += fs::path(work.name).filename().string() + (work.note.empty() ? "" : "!") + ";";
        }
        return names;
    }
    /// The files beside the settings.
    [[nodiscard]] std::set<std::string> Kept() const {
        std::set<std::string> names;
        if (!fs::exists(folder.Native("settings/projects"))) return names;
        for (const auto& entry :
             fs::recursive_directory_iterator(folder.Native("settings/projects"))) {
            if (entry.is_regular_file()) names.insert(entry.path().filename().string());
        }
        return names;
    }
    [[nodiscard]] std::string Question(const std::string& name) const {
        return folder.Native("p/" + name) +
               " has been changed by another program since it was opened.\r\n\r\nDo you want to "
               "replace it with your version? If not, your version stays beside it as " +
               name + ".tmp.htm.";
    }

    test::ScratchFolder folder;
    static constexpr const char* kTopicA = "<title>Ay</title><body>the text of topic a</body>\r\n";
    static constexpr const char* kTopicB = "<title>Bee</title><body>the text of topic b</body>\n";
    static constexpr const char* kEditedA =
        "<title>Ay</title><body>the text of a, edited</body>\r\n";
    static constexpr const char* kEditedB =
        "<title>Bee</title><body>the text of b, edited</body>\n";
    static constexpr const char* kForeign = "<title>Ay</title><body>what another program wrote";
    static constexpr const char* kAll =
        "a.htm;b.htm;Titles and identifiers of topics, project options;Table of contents;"
        "Keyword index;Outline of the printed document;";
};

TEST_P(Recovery, TakesBackAllThatWasNotSaved) {
    const std::string lists = WorkAndDie(GetParam());
    EXPECT_EQ(folder.Read("p/b.htm"), kTopicB);
    for (const bool dies_at_once : {true, false}) {
        Program run(folder);
        Expect(run, [&](FormRecover& form) {
            EXPECT_EQ(Names(form), kAll);
            if (dies_at_once) {
                for (const LeftWork& work : form.works) EXPECT_EQ(work.when.size(), 16U);
            }
            TakeAll(form);
        });
        run.Open(GetParam());
        EXPECT_EQ(run.Lists(), lists);
        if (dies_at_once) continue;
        EXPECT_EQ(run.surface.DocumentHTML(), kEditedA) << "it is opened as it was left";
        EXPECT_TRUE(run.main.project.project_dirty);
        EXPECT_TRUE(FileSave_Click(run.main));
        EXPECT_EQ(folder.Read("p/a.htm"), kEditedA);
        EXPECT_EQ(folder.Read("p/b.htm"), kEditedB);
        EXPECT_EQ(Kept(), std::set<std::string>{});
        EXPECT_TRUE(Form_QueryUnload(run.main));
    }
    Program again(folder);
    again.Open(GetParam());
    EXPECT_EQ(again.main.project.project_title, "New title");
    EXPECT_EQ(again.main.contents.Tree1.Count(), 4);
}

TEST_P(Recovery, PutsAsideWhatIsNotWanted) {
    WorkAndDie(GetParam());
    folder.Write("p/a.htm.tmp.htm.bak", "older");
    Program run(folder);
    Expect(run, [](FormRecover& form) {
        for (LeftWork& work : form.works) work.is_wanted = work.name == "Table of contents";
        form.OKButton_Click();
    });
    run.Open(GetParam());
    EXPECT_EQ(run.surface.DocumentHTML(), kTopicA);
    EXPECT_EQ(run.main.contents.Tree1.Count(), 4);
    EXPECT_EQ(run.main.project.project_title, "Guide");
    EXPECT_EQ(folder.Read("p/a.htm.tmp.htm.bak"), "older");
    EXPECT_EQ(folder.Read("p/a.htm.tmp.htm.bak2"), kEditedA);
    EXPECT_EQ(folder.Read("p/b.htm.tmp.htm.bak"), kEditedB);
    EXPECT_TRUE(Kept().contains("lists.left.bak"));
}

TEST_P(Recovery, WhatTheProjectHasByNowIsNoWork) {
    {
        // Killed when the save had written the lists.
        Program run(folder);
        run.Open(GetParam());
        run.main.contents.Tree1.Roots().front()->Text = "Another caption";
        SetContentsDirty(run.main);
        run.main.unsaved.lists_changed = true;
        KeepUnsavedWork(run.main);
        const std::string kept = PrivateFile(run.main, run.main.project.proj, kListsFile);
        const std::string record = run.files.ReadFile(kept);
        EXPECT_TRUE(FileSave_Click(run.main));
        run.files.WriteFile(kept, record);
    }
    Program run(folder);
    run.Open(GetParam());
    EXPECT_EQ(run.main.contents.Tree1.Roots().front()->Text, "Another caption");
    EXPECT_EQ(Kept(), std::set<std::string>{});
}

TEST_P(Recovery, CanBeDecidedAnotherTime) {
    WorkAndDie(GetParam());
    for (int i = 0; i < 2; ++i) {
        Program run(folder);
        Expect(run, [&](FormRecover& form) {
            EXPECT_EQ(Names(form), kAll);
            form.CancelButton_Click();
        });
        run.screen.ExpectMessage(
            folder.Native("p/a.htm") +
                " was edited and not saved when the program ended the last time.\r\n\r\nDo you "
                "want to go on with the edited version?",
            MessageAnswer::kYes);
        run.Open(GetParam());
        EXPECT_EQ(run.surface.DocumentHTML(), kEditedA);
        KeepUnsavedWork(run.main);
    }
    // A run that nobody watches lets all of it lie.
    Program silent(folder);
    silent.main.unsaved.is_on = false;
    silent.Open(GetParam());
    EXPECT_EQ(silent.surface.DocumentHTML(), kTopicA);
    EXPECT_TRUE(FileSave_Click(silent.main));
    EXPECT_EQ(folder.Read("p/a.htm.tmp.htm"), kEditedA);
    EXPECT_EQ(folder.Read("p/a.htm"), kTopicA);
    EXPECT_TRUE(Kept().contains("lists.left"));
}

TEST_P(Recovery, AsksWhereAnotherProgramHasChangedTheTopicSince) {
    WorkAndDie(GetParam());
    folder.Write("p/a.htm", kForeign);
    fs::last_write_time(folder.Native("p/a.htm"),
                        fs::file_time_type::clock::now() - std::chrono::hours(1));
    Program run(folder);
    Expect(run, [&](FormRecover& form) {
        EXPECT_TRUE(Names(form).starts_with("a.htm!;b.htm;")) << Names(form);
        TakeAll(form);
    });
    run.Open(GetParam());
    run.screen.ExpectMessage(Question("a.htm"), MessageAnswer::kNo);
    FileSave_Click(run.main);
    EXPECT_EQ(folder.Read("p/a.htm"), kForeign);
    EXPECT_EQ(folder.Read("p/a.htm.tmp.htm"), kEditedA);
    EXPECT_EQ(folder.Read("p/b.htm"), kEditedB);
    ForgetUnsavedWork(run.main);
    EXPECT_EQ(Kept(), std::set<std::string>{"copies"}) << "the next run asks as well";
}

TEST_P(Recovery, OfACopyOfWhichNothingIsKnownTheTimesTell) {
    const auto now = fs::file_time_type::clock::now();
    for (const bool is_newer : {false, true}) {
        folder.Write("p/a.htm.tmp.htm", kEditedA);
        folder.Write("p/a.htm", kForeign);
        fs::last_write_time(folder.Native("p/a.htm"), now + std::chrono::hours(is_newer ? 1 : -1));
        Program run(folder);
        Expect(run, [&](FormRecover& form) {
            EXPECT_EQ(Names(form), is_newer ? "a.htm!;" : "a.htm;");
            TakeAll(form);
        });
        run.Open(GetParam());
        if (is_newer) run.screen.ExpectMessage(Question("a.htm"), MessageAnswer::kYes);
        FileSave_Click(run.main);
        EXPECT_EQ(folder.Read("p/a.htm"), kEditedA);
        ForgetUnsavedWork(run.main);
    }
}

TEST_P(Recovery, NothingIsOfferedAfterAProperEnd) {
    for (const MessageAnswer answer : {MessageAnswer::kYes, MessageAnswer::kNo}) {
        Program run(folder);
        run.Open(GetParam());
        run.surface.SetDocumentHTML(kEditedA);
        SetContentsDirty(run.main);
        KeepUnsavedWork(run.main);
        EXPECT_TRUE(Kept().contains("topic"));
        run.screen.ExpectMessage(
            "The current project has been modified.\r\n\r\nDo you want to save changes?", answer);
        ASSERT_TRUE(Form_QueryUnload(run.main));
        Form_Unload(run.main);
        EXPECT_EQ(Kept(), std::set<std::string>{});
        folder.Write("p/a.htm", kTopicA);
    }
    Program run(folder);
    run.Open(GetParam());
}

TEST_P(Recovery, TypingInTheSourceViewIsKept) {
    {
        Program run(folder);
        run.Open(GetParam());
        run.main.window.TabStrip2.SelectedIndex = right_tab::kSource;
        run.source.SetText(kEditedA);
        ASSERT_TRUE(run.main.editor.source_edited);
        KeepUnsavedWork(run.main);
    }
    Program run(folder);
    Expect(run, TakeAll);
    run.Open(GetParam());
    EXPECT_EQ(run.surface.DocumentHTML(), kEditedA);
}

std::string NameOf(const testing::TestParamInfo<Family>& info) {
    return info.param == Family::kHtmlHelp ? "Html" : "Java";
}

INSTANTIATE_TEST_SUITE_P(Families, Recovery, testing::Values(Family::kHtmlHelp, Family::kJavaHelp),
                         NameOf);

}  // namespace
}  // namespace quorrel
