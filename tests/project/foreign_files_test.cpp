// Files that others change, that cannot be read, or that are not the project's own.
#include "project/foreign_files.hpp"

#include "app/startup.hpp"
#include "platform/text.hpp"
#include "project/open_project.hpp"
#include "project/save_project.hpp"
#include "support/project_fixture.hpp"

namespace quorrel {
namespace {

/// Reading the file whose name is set fails.
class UnreadableFileSystem : public NativeFileSystem {
  public:
    UnreadableFileSystem() { flush_to_disk = false; }
    std::string ReadFile(std::string_view path) override {
        if (!unreadable.empty() && path.ends_with(unreadable)) {
            throw RuntimeError(run_time_error::kDeviceError);
        }
        return NativeFileSystem::ReadFile(path);
    }
    std::string ReadFileHead(std::string_view path, std::size_t size) override {
        if (!unreadable.empty() && path.ends_with(unreadable) && path.ends_with(".htm")) {
            throw RuntimeError(run_time_error::kDeviceError);
        }
        return NativeFileSystem::ReadFileHead(path, size);
    }
    std::string unreadable;
};

/// A project in the form that the program writes, in both families.
class ForeignFiles : public test::ProjectFixture {
  protected:
    static constexpr const char* kContents =
        "<UL>\r\n<LI><OBJECT type=\"text/sitemap\">\r\n<param name=\"Name\" value=\"A\">\r\n"
        "<param name=\"Local\" value=\"a.htm\">\r\n</OBJECT>\r\n</UL>\r\n";
    static constexpr const char* kHeader = "#define a 5\r\n";

    void SetUp() override {
        folder.Write("p/a.htm", "<title>Ay</title><body>text of the topic</body>");
        folder.Write("p/g.hhp",
                     "[OPTIONS]\r\nContents file=g.hhc\r\nIndex file=g.hhk\r\nTitle=Guide\r\n\r\n"
                     "[FILES]\r\na.htm\r\n;Title=Ay\r\n\r\n[ALIAS]\r\n#include g.ali\r\n\r\n[MAP]"
                     "\r\n#include g.h\r\n");
        folder.Write("p/g.ali", "a=a.htm\r\n");
        folder.Write("p/g.h", kHeader);
        folder.Write("p/g.hhc", kContents);
        folder.Write("p/g.hhk", "<!-- Sitemap 1.0 -->\r\n");
        folder.Write("p/g.out", kContents);
        folder.Write("p/g.hs",
                     "<helpset><title>Guide</title><maps><mapref location=\"g.jhm\"/></maps>\n"
                     "<view><data>gTOC.xml</data>TOCView</view>\n"
                     "<view><data>gIndex.xml</data>IndexView</view></helpset>\n");
        folder.Write("p/g.jhm", "<map>\n<mapID target=\"a\" url=\"a.htm\"/>\n</map>\n");
        folder.Write("p/gTOC.xml", "<toc>\n<tocitem text=\"A\" target=\"a\"/>\n</toc>\n");
        folder.Write("p/gIndex.xml", "<index>\n<indexitem text=\"k\" target=\"a\"/>\n</index>\n");
    }
    void ChangeNumber(const std::string& number) {
        main.topics.ListTopics.At(1).SetSubItem(topic_cell::kInteger, number);
    }
    void Expect(Doubt doubt, const char* file, const char* mine, MessageAnswer answer) {
        screen.ExpectMessage(
            SentenceOn(doubt, folder.Native(file)) +
                "\r\n\r\nDo you want to replace it with your version? If not, your "
                "version is written to " +
                folder.Native(mine) + ".",
            answer);
    }
};

TEST_F(ForeignFiles, AFileThatAnotherProgramChangedIsAskedAbout) {
    Open("p/g.hhp");
    folder.Write("p/g.h", "#define a 50\r\n");
    EXPECT_TRUE(FileSave_Click(main)) << "what would be written is what was read";
    EXPECT_EQ(folder.Read("p/g.h"), "#define a 50\r\n");

    ChangeNumber("7");
    Expect(Doubt::kChanged, "p/g.h", "p/g.h.mine", MessageAnswer::kNo);
    screen.ExpectMessageWith("Not everything could be saved");
    EXPECT_FALSE(FileSave_Click(main));
    EXPECT_EQ(folder.Read("p/g.h"), "#define a 50\r\n");
    EXPECT_EQ(folder.Read("p/g.h.mine"), "#define a 7\r\n");
    EXPECT_TRUE(main.project.project_dirty);

    Expect(Doubt::kChanged, "p/g.h", "p/g.h.mine", MessageAnswer::kYes);
    EXPECT_TRUE(FileSave_Click(main));
    EXPECT_EQ(folder.Read("p/g.h"), "#define a 7\r\n");
    EXPECT_FALSE(folder.Exists("p/g.h.mine"));
    EXPECT_TRUE(FileSave_Click(main)) << "asked once";
}

TEST_F(ForeignFiles, AChangeIsToldOnceWhenTheUserComesBack) {
    files.DeleteFile(folder.Windows("p/g.out"));
    Open("p/g.hhp");
    NoticeForeignChanges(main);
    folder.Write("p/g.hhc", "<!-- Sitemap 1.0 of another program -->\r\n");
    folder.Write("p/g.out", kContents);  // was not there
    screen.ExpectMessageWith("Another program has changed files");
    NoticeForeignChanges(main);
    NoticeForeignChanges(main);
}

TEST_F(ForeignFiles, FilesThatAreNotTheProjectsOwnAreAskedAbout) {
    folder.Write("victim.txt", "a letter");
    folder.Write("p/g.ali", "");
    const std::string hhp = folder.Read("p/g.hhp");
    folder.Write("p/g.hhp", ReplaceAll(hhp, "include g.h", "include ..\\victim.txt"));
    folder.Write("p/g.hhc", "<html><body>a page</body></html>");
    screen.ExpectMessageWith("cannot be taken over in full");
    Open("p/g.hhp");
    ChangeNumber("7");
    main.contents.toc_dirty = true;
    Expect(Doubt::kOtherKind, "p/g.hhc", "p/g.hhc.mine", MessageAnswer::kNo);
    Expect(Doubt::kOutside, "victim.txt", "p/victim.txt.mine", MessageAnswer::kNo);
    screen.ExpectMessageWith("Not everything could be saved");
    EXPECT_FALSE(FileSave_Click(main));
    EXPECT_EQ(folder.Read("victim.txt"), "a letter");
    EXPECT_EQ(folder.Read("p/victim.txt.mine"), "#define a 7\r\n");
}

TEST_F(ForeignFiles, AConversionAsksBeforeItReplacesAProject) {
    Open("p/g.hhp", "");
    const std::string old_map = folder.Read("p/g.jhm");
    screen.ExpectMessageWith("Saving makes a JavaHelp project", MessageAnswer::kNo);
    screen.ExpectMessageWith("Not everything could be saved");
    EXPECT_FALSE(FileSave_Click(main));
    EXPECT_EQ(folder.Read("p/g.jhm"), old_map);
    screen.ExpectMessageWith("Saving makes a JavaHelp project", MessageAnswer::kYes);
    EXPECT_TRUE(FileSave_Click(main));
    EXPECT_NE(folder.Read("p/g.jhm"), old_map);
    EXPECT_TRUE(FileSave_Click(main)) << "asked once";
}

TEST_F(ForeignFiles, AJavaHelpProjectIsNotOpenedInTheHtmlHelpEdition) {
    folder.Write("my.hsx/g.hhp", "[FILES]\r\n");
    Open("my.hsx/g.hhp");
    EXPECT_EQ(main.project.help_mode, 0);
    folder.Write("p/X.HS", folder.Read("p/g.hs"));
    screen.ExpectMessageWith("is a JavaHelp project");
    Open("p/X.HS");
    EXPECT_EQ(main.project.proj, folder.Windows("my.hsx/g.hhp"));
    screen.ExpectMessageWith("cannot be taken over in full");  // short as it is
    Open("p/X.HS", "");
    EXPECT_EQ(main.project.help_mode, 1);
}

TEST_F(ForeignFiles, WhatCouldNotBeReadIsNotWritten) {
    const std::vector<std::string> names = {"g.hhp", "g.ali", "g.h",   "g.hhc",    "g.hhk",
                                            "g.out", "g.hs",  "g.jhm", "gTOC.xml", "gIndex.xml"};
    const auto texts_of_all = [&] {
        std::vector<std::string> texts;
        for (const std::string& name : names) texts.push_back(folder.Read("p/" + name));
        return texts;
    };
    const auto save_all = [&](const char* project, const std::string& unreadable) {
        UnreadableFileSystem disk;
        disk.unreadable = unreadable;
        SilentScreen nobody;
        PlainSurface page(disk);
        MainForm run({disk, nobody, page, source, browser, shell}, folder.Windows("settings"),
                     MachineCodePage{});
        const bool javahelp = std::string_view(project).ends_with(".hs");
        LoadSettings(run, javahelp ? "" : "html");
        run.project.recent_proj = folder.Windows(project);
        OpenProject_Click(run);
        EXPECT_EQ(NotReadMessage(run).empty(), unreadable.empty());
        disk.unreadable.clear();
        run.contents.toc_dirty = run.keywords.index_dirty = run.outline.doc_dirty = true;
        return FileSave_Click(run);
    };
    for (const char* project : {"p/g.hhp", "p/g.hs"}) {
        SetUp();
        save_all(project, "");
        const auto whole = texts_of_all();
        const bool javahelp = std::string_view(project).ends_with(".hs");
        for (const std::string& name : names) {
            const bool is_javahelp_file = &name - names.data() > 5;
            if (is_javahelp_file != javahelp && name != "g.out") continue;
            const auto before = texts_of_all();
            EXPECT_FALSE(save_all(project, name)) << name;
            const auto after = texts_of_all();
            for (std::size_t i = 0; i < names.size(); ++i) {
                // The project file gets a line more with each save.
                if (names[i] == "g.hhp" && name != "g.hhp") continue;
                EXPECT_EQ(after[i], before[i]) << names[i] << " without " << name;
            }
            EXPECT_EQ(after[3] + after[8], whole[3] + whole[8]);
        }
    }
}

}  // namespace
}  // namespace quorrel
