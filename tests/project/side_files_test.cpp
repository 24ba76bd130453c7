#include "project/side_files.hpp"

#include "app/settings_file.hpp"
#include "platform/text.hpp"
#include "support/project_fixture.hpp"

namespace quorrel {
namespace {

class SideFiles : public test::ProjectFixture {
  protected:
    SideFiles() {
        main.project.proj = folder.Windows("p/guide.hhp");
        folder.Write("p/guide.hhp", "[OPTIONS]\r\nTitle=Guide\r\n");
        main.editor.main_path = folder.Windows("p/html/intro.htm");
    }
    void Store(std::string value) {
        folder.Write("p/guide.stn", "[status]\r\nintro.htm=" + value + "\r\n");
    }
    struct Shown {
        int status;
        std::string notes, tip;
        bool visible;
        bool operator==(const Shown&) const = default;
    };
    Shown Get() {
        GetStatusNotes(main);
        const WindowControls& window = main.window;
        return {window.ComboStatus.ListIndex, window.TextNotes.Text, window.CommandNote.ToolTipText,
                window.CommandNote.Visible};
    }
};

TEST_F(SideFiles, StatusAndNotesAreSplitAtTheFirstComma) {
    const std::pair<const char*, Shown> cases[] = {
        {"2,check, then||print", {2, "check, then\r\nprint", "check, then print", true}},
        {",x", {0, "", "", true}},
        {",xy", {0, "xy", "xy", true}},
        {"3", {0, "", "", true}},
        {"", {0, "", "", false}}};
    for (const auto& [stored, shown] : cases) {
        Store(stored);
        EXPECT_EQ(Get(), shown) << stored;
    }
}

TEST_F(SideFiles, ALongNoteIsCutAndItsToolTipShortened) {
    const std::string letters(2997, 'n');
    main.window.TextNotes.Text = letters;
    main.window.ComboStatus.ListIndex = 12;
    EXPECT_TRUE(SetStatusNotes(main));
    EXPECT_NE(folder.Read("p/guide.stn").find("=12," + letters + "\r\n"), npos);
    const Shown shown = Get();
    EXPECT_EQ(shown.notes.size(), kStatusLimit - 3);
    EXPECT_EQ(shown.tip, std::string(200, 'n') + "...");
}

TEST_F(SideFiles, WhatTheFieldsCannotShowStays) {
    const std::string letters(kNotesLimit, 'n');
    Store("1," + letters + "|| more");
    const std::string whole = folder.Read("p/guide.stn");
    EXPECT_EQ(Get().notes, letters);
    EXPECT_TRUE(SetStatusNotes(main));
    EXPECT_EQ(folder.Read("p/guide.stn"), whole) << "nothing was edited";
    main.window.TextNotes.Text = std::string("done");
    EXPECT_TRUE(SetStatusNotes(main));
    EXPECT_EQ(Get().notes, "done\r\n more");
    Store("1," + letters + "rest");
    Get();
    main.window.TextNotes.Text = std::string();
    main.window.ComboStatus.ListIndex = 0;
    EXPECT_TRUE(SetStatusNotes(main));
    EXPECT_EQ(Get().notes, "rest");
}

TEST_F(SideFiles, AnEmptyStatusClearsAnEntryAndMakesNone) {
    EXPECT_TRUE(SetStatusNotes(main));
    EXPECT_FALSE(folder.Exists("p/guide.stn"));
    Store("1,x");
    main.window.ComboStatus.ListIndex = 0;
    EXPECT_TRUE(SetStatusNotes(main));
    EXPECT_EQ(folder.Read("p/guide.stn"), "[status]\r\nintro.htm=\r\n");
}

TEST_F(SideFiles, TheImageMapCountIsKeptByTheMachine) {
    EXPECT_EQ(ReadImageMapCount(main), 0);
    WriteImageMapCount(main, 7);
    EXPECT_EQ(folder.Read("settings/guide.prj"), "[IMAGE MAP]\r\nMapCount=7\r\n");
    EXPECT_FALSE(folder.Exists("p/guide.prj"));
    EXPECT_EQ(ReadImageMapCount(main), 7);
    folder.Write("settings/guide.prj", "[IMAGE MAP]\r\nMapCount=-7\r\n");
    EXPECT_EQ(ReadImageMapCount(main), 0);
}

TEST_F(SideFiles, WhatCannotBeKeptIsTold) {
    folder.Write("p/guide.stn/in the way", "");
    folder.Write("p/guide.prj/in the way", "");
    folder.Write("settings", "a file where the folder should be");
    const auto path = [&](const char* name) { return files.NativePath(folder.Windows(name)); };
    main.window.TextNotes.Text = std::string("check");
    screen.ExpectMessage("The status and the notes of this topic cannot be kept: " +
                         path("p/guide.stn") + " could not be written.");
    KeepStatusNotes(main);
    screen.ExpectMessage("Settings of this project cannot be kept: " + path("p/guide.prj") +
                         " could not be written.");
    SetProj(main, "Settings", {{"html", "pages"}, {"images", "pictures"}});
    screen.ExpectMessage("Settings cannot be kept: " + path("settings/guide.prj") +
                         " could not be written. The next start will not know of changes made "
                         "from here on.");
    WriteImageMapCount(main, 7);
    SetIni(main, "Settings", {{"useexted", "1"}});  // told once
}

}  // namespace
}  // namespace quorrel
