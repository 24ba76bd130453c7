#include "app/commands.hpp"

#include <set>

#include "app/command_tables.hpp"
#include "app/menu_commands.hpp"
#include "app/startup.hpp"
#include "app/tool_bar.hpp"
#include "editor/formatting.hpp"
#include "platform/text.hpp"
#include "project/open_project.hpp"
#include "support/recording_services.hpp"

namespace quorrel::test {
namespace {

class Commands : public RecordingFixture {
  protected:
    bool IsEnabled(std::string_view name) { return EntryOf(main.window, name).Enabled; }
    /// The enabled ones of what is in the tables, in their order.
    std::string EnabledButtons() {
        std::string names;
        for (const ToolButton& button : ToolBarButtons()) {
            if (IsEnabled(button.key)) names.append(button.key).append(" ");
        }
        return names;
    }
    std::string EnabledMenus() {
        std::string names;
        for (const Menu& menu : Menus()) {
            if (menu.place == MenuPlace::kBar && IsEnabled(menu.name)) {
                names.append(menu.name).append(" ");
            }
        }
        return names;
    }
    bool FormattingIsEnabled() {
        const bool on = main.window.FontCombo.Enabled;
        EXPECT_EQ(main.window.FontSizeCombo.Enabled(), on);
        EXPECT_EQ(main.window.ComboStyle.Enabled(), on);
        for (const ToolButton& button : FormatBarButtons()) EXPECT_EQ(IsEnabled(button.key), on);
        return on;
    }
};

TEST_F(Commands, TheTablesAreWhole) {
    std::set<std::string_view> names;
    std::set<std::string_view> keys;
    for (const Menu& menu : Menus()) {
        for (const Command& command : menu.entries) {
            EXPECT_TRUE(names.insert(command.name).second) << "twice: " << command.name;
            if (command.caption == kSeparator) continue;
            EXPECT_FALSE(StatusTip(command).empty() && FindMenu(command.name) == nullptr);
            EXPECT_EQ(&MenuOf(command), &menu);
            if (command.shortcut.empty()) continue;
            EXPECT_TRUE(keys.insert(command.shortcut).second) << "twice: " << command.shortcut;
        }
    }
    for (const auto& buttons : {ToolBarButtons(), FormatBarButtons()}) {
        for (const ToolButton& button : buttons) {
            EXPECT_TRUE(names.insert(button.key).second) << "twice: " << button.key;
            EXPECT_FALSE(button.tool_tip.empty() || button.icon.empty()) << button.key;
            if (button.shortcut.empty()) continue;
            EXPECT_TRUE(keys.insert(button.shortcut).second) << "twice: " << button.shortcut;
        }
    }
}

TEST_F(Commands, CaptionsAreThoseOfTheEdition) {
    EXPECT_EQ(EntryOf(main.window, "mnutreepop").Caption(), "pop");
    EXPECT_EQ(main.window.Named("buildsearch").Caption(), "&Compile Help File");
    LoadSettings(main, "");
    EXPECT_EQ(main.window.Named("buildsearch").Caption(), "&Build Full-Text Search Database...");
    EXPECT_FALSE(main.window.Named("insertexpsec").Visible());
}

TEST_F(Commands, TheTabDecidesWhatCanBeUsed) {
    const std::string all = "file edit View insert FormatMain table D2D tools help ";
    std::string surface_buttons;
    for (const ToolButton& button : ToolBarButtons()) {
        const bool is_browser = Contains("GoBack Refresh Stop", button.key);
        if (!is_browser && IsAvailable(button.key)) surface_buttons.append(button.key).append(" ");
    }
    const std::tuple<int, std::string, std::string> cases[] = {
        {2, "NewProj New Open Save ", "file D2D help "},
        {1, surface_buttons, all},
        // The menus that these two tabs do not name are as they were.
        {3, "NewProj Open ", "file edit insert FormatMain table D2D tools help "},
        {4, "NewProj New Open GoBack Refresh Stop ", "insert FormatMain table D2D tools help "},
        {5, "NewProj New Open ", "D2D help "},
        {3, "NewProj Open ", "file edit D2D help "},
        {7, "NewProj New Open ", "D2D help "},
        {1, surface_buttons, all},
    };
    EXPECT_EQ(EnabledButtons(), "NewProj Open ");
    EXPECT_EQ(EnabledMenus(), "file D2D help ");
    EXPECT_FALSE(FormattingIsEnabled());
    OpenGuide();
    for (const auto& [tab, buttons, menus] : cases) {
        GoTo(tab);
        EXPECT_EQ(EnabledButtons(), buttons) << tab;
        EXPECT_EQ(EnabledMenus(), menus) << tab;
        EXPECT_EQ(FormattingIsEnabled(), tab == right_tab::kNormal) << tab;
    }
    main.project.proj.clear();
    GoTo(right_tab::kPreview);
    EXPECT_EQ(EnabledMenus(), "D2D help ");
}

TEST_F(Commands, OpeningAProjectShowsTheButtonsOfItsKind) {
    folder.Write("j/x.hs", "<helpset><title>J</title></helpset>");
    const std::tuple<const char*, const char*, bool> cases[] = {
        {"html", "p/guide.hhp", true}, {"", "j/x.hs", false}, {"", "p/guide.hhp", false}};
    for (const auto& [edition, project, compiles] : cases) {
        OpenGuide();
        LoadSettings(main, edition);
        main.project.recent_proj = folder.Windows(project);
        OpenProject_Click(main);
        EXPECT_EQ(main.window.Named("Compile").Visible(), compiles) << edition << project;
        EXPECT_EQ(main.window.Named("jar").Visible(), !compiles) << edition << project;
        EXPECT_TRUE(IsEnabled("Save"));
    }
}

TEST_F(Commands, ButtonsActOnWhatTheTabShows) {
    const std::tuple<const char*, Calls, Calls> cases[] = {
        {"Print", {"surface focus", "surface prints"}, {"source prints"}},
        {"Cut", {"5003"}, {"source cut"}},
        {"Copy", {"5002"}, {"source copy"}},
        {"Paste", {"5032"}, {"source paste"}},
        {"Find", {"5008"}, {"source find"}},
        {"GoBack", {"browser back"}, {"browser back"}},
        {"GoFwd", {"browser refresh"}, {"browser refresh"}},
        {"Refresh", {"browser stop"}, {"browser stop"}},
        {"Stop", {}, {}}};
    OpenGuide();
    for (const auto& [key, on_surface, elsewhere] : cases) {
        for (int tab = right_tab::kNormal; tab <= right_tab::kDocumentWizard; ++tab) {
            GoTo(tab);
            TakeCalls();
            tbToolBar_ButtonClick(main, key);
            EXPECT_EQ(TakeCalls(), tab == right_tab::kNormal ? on_surface : elsewhere)
                << key << " on tab " << tab;
        }
    }
    tbToolBar_ButtonClick(main, "showhide");
    EXPECT_TRUE(surface.ShowDetails());
    EXPECT_TRUE(main.window.Named("showhide").Checked());
}

TEST_F(Commands, FormattingGivesItsNumbers) {
    const std::pair<const char*, const char*> cases[] = {
        {"Bold", "5000"},        {"Italic", "5023"},  {"Underline", "5048"},    {"Color", "5046?"},
        {"LeftJustify", "5025"}, {"Center", "5024"},  {"RightJustify", "5026"}, {"Numbers", "5030"},
        {"Bullets", "5051"},     {"Outdent", "5031"}, {"Indent", "5018"}};
    OpenGuide();
    for (const auto& [key, call] : cases) {
        Toolbar1_ButtonClick(main, key);
        EXPECT_EQ(TakeCalls(), Calls{call}) << key;
    }
    main.window.ComboStyle.ListIndex = 1;
    main.window.FontCombo.ListIndex = 2;
    main.window.FontSizeCombo.ListIndex = 4;
    const auto choose = [&] {
        ComboStyle_Click(main);
        FontCombo_Click(main);
        FontSizeCombo_Click(main);
        return TakeCalls();
    };
    EXPECT_EQ(choose(), (Calls{"5043=" + main.window.ComboStyle.Text(), "5044=Tahoma", "5045=5"}));
    main.editor.BlockFormatsLoaded = false;
    EXPECT_EQ(choose().size(), 1u) << "the font waits for the document";
    surface.status = command_status::kDisabled;
    EXPECT_EQ(choose(), Calls{});
}

TEST_F(Commands, EntriesRunWhatTheyShow) {
    const std::tuple<const char*, Calls, Calls> cases[] = {
        {"EditSub0", {"5049"}, {"source undo"}},
        {"EditSub1", {"5033"}, {"source redo"}},
        {"EditSub3", {"5003"}, {"source cut"}},
        {"EditSub4", {"5002"}, {"source copy"}},
        {"EditSub5", {"5032"}, {"source paste"}},
        {"EditSub6", {"5035"}, {"source select all"}},
        {"EditSub8", {"5008"}, {"source find"}},
        {"fileprint", {"surface focus", "surface prints"}, {"source prints"}},
        {"Font", {"5009?"}, {}},
        {"FormatSub2", {"5043=Heading 1"}, {}},
        {"center_kb", {"5024"}, {}},
        {"tablesub2", {"5021"}, {}},
        {"tablesub3", {"5020"}, {}},
        {"tablesub6", {"5007"}, {}},
        {"tablesub7", {"5006"}, {}},
        {"D2DSub1", {"5040"}, {}},
        {"D2DSub8", {"5027"}, {}},
        {"D2DSub10", {"5028"}, {}}};
    OpenGuide();
    main.window.Named("FormatSub2").Caption = std::string("Heading 1");
    for (const auto& [name, on_surface, in_source] : cases) {
        for (const int tab : {right_tab::kNormal, right_tab::kSource}) {
            GoTo(tab);
            TakeCalls();
            RunCommand(main, name);
            EXPECT_EQ(TakeCalls(), tab == right_tab::kNormal ? on_surface : in_source)
                << name << " on tab " << tab;
        }
        GoTo(right_tab::kOrganizeTOC);
        TakeCalls();
        EXPECT_EQ(RunCommand(main, name) && !TakeCalls().empty(), false) << name;
    }
}

TEST_F(Commands, AKeyIsNotBarredByWhatTheMenuShowedBefore) {
    OpenGuide();
    const Menu& edit = *FindMenu("edit");
    surface.status = command_status::kDisabled;
    OpenMenu(main, edit);
    EXPECT_FALSE(IsEnabled("EditSub0"));
    CloseMenu(main, edit);
    EXPECT_FALSE(RunCommand(main, "EditSub0")) << "there is still nothing to undo";
    EXPECT_TRUE(IsEnabled("EditSub0")) << "asking leaves no trace";
    surface.status = command_status::kEnabled;
    EXPECT_TRUE(RunCommand(main, "EditSub0"));
    EXPECT_EQ(TakeCalls(), Calls{"5049"});
}

TEST_F(Commands, WhatIsNotBuiltStaysDisabled) {
    OpenGuide();
    for (const Menu& menu : Menus()) {
        OpenMenu(main, menu);
        for (const Command& command : menu.entries) {
            if (command.caption == kSeparator || IsAvailable(command.name)) continue;
            EXPECT_FALSE(IsEnabled(command.name)) << command.name;
            EXPECT_EQ(StatusTip(command), "Not available yet.");
            EXPECT_FALSE(RunCommand(main, command.name));
        }
        CloseMenu(main, menu);
    }
}

TEST_F(Commands, WithoutAProjectThereIsNothingToSave) {
    OpenMenu(main, *FindMenu("file"));
    EXPECT_FALSE(IsEnabled("FileSave"));
    CloseMenu(main, *FindMenu("file"));
    EXPECT_FALSE(RunCommand(main, "FileSave"));
    EXPECT_FALSE(RunCommand(main, "editcssfile")) << "its menu is disabled";
    EXPECT_FALSE(RunCommand(main, "recent0")) << "it is not shown";
}

TEST_F(Commands, PositionsShowTheirState) {
    const std::tuple<int, const char*, bool> cases[] = {
        {command_status::kLatched, "Set Position Attribute To 1D", true},
        {command_status::kDisabled, "Set Position Attribute To 1D", false},
        {command_status::kEnabled, "Set Position Attribute To Absolute", false}};
    for (const auto& [status, caption, is_locked] : cases) {
        surface.status = status;
        OpenMenu(main, *FindMenu("D2D"));
        EXPECT_EQ(main.window.Named("D2DSub10").Caption(), caption);
        EXPECT_EQ(main.window.Named("D2DSub8").Checked(), is_locked);
        EXPECT_EQ(IsEnabled("D2DSub0"), status >= command_status::kEnabled);
    }
}

TEST_F(Commands, ViewOptionsAreToggled) {
    OpenGuide();
    for (const char* name : {"Viewsub0", "Viewsub2", "EditSub11"}) RunCommand(main, name);
    EXPECT_TRUE(surface.ShowBorders() && surface.SnapToGrid());
    EXPECT_FALSE(surface.SourceCodePreservation());
    EXPECT_FALSE(main.settings.preserve_html);
    for (const char* name : {"Viewsub0", "Viewsub2", "EditSub11"}) {
        EXPECT_TRUE(main.window.Named(name).Checked()) << name;
        RunCommand(main, name);
        EXPECT_FALSE(main.window.Named(name).Checked()) << name;
    }
    EXPECT_TRUE(main.settings.preserve_html);
}

TEST_F(Commands, AnHtmlFileIsOpenedWithoutBecomingATopic) {
    OpenGuide();
    folder.Write("other/x.htm", "<title>Other</title><body>x</body>");
    const std::string path = folder.Windows("other/x.htm");
    screen.ExpectFileDialog(path);
    EXPECT_TRUE(RunCommand(main, "fileopen"));
    EXPECT_EQ(main.editor.main_path, path);
    EXPECT_EQ(surface.DocumentHTML(), "<title>Other</title><body>x</body>");
    EXPECT_EQ(main.window.StatusBar1.Panel(2), folder.Native("other/x.htm"));
    EXPECT_EQ(main.topics.current_topic_index, 0);
    EXPECT_EQ(main.topics.ListTopics.Count(), 2);
    screen.ExpectFileDialog(folder.Windows("other/y.htm"));
    RunCommand(main, "FileSaveAs");
    EXPECT_EQ(folder.Read("other/y.htm"), "<title>Other</title><body>x</body>");
}

TEST_F(Commands, AButtonIsPastedAtTheSelection) {
    OpenGuide();
    surface.SelectFirst("text");
    EXPECT_TRUE(RunCommand(main, "InsertButton"));
    EXPECT_EQ(surface.DocumentHTML(),
              "<title>Ay</title><body><BUTTON TITLE=Button>Button!</BUTTON> a</body>\r\n");
}

TEST_F(Commands, UpdatesAreLookedForInTheBrowser) {
    CheckForUpdates(main, "https://example.org/");
    EXPECT_EQ(TakeCalls(), Calls{"shell start https://example.org/htmlhelp"});
    shell.fails = true;
    screen.ExpectMessage(
        "Unable to launch your browser. Please visit the following URL for updates: "
        "https://example.org/htmlhelp");
    CheckForUpdates(main, "https://example.org/");
    screen.ExpectMessage("This build of the program has no page for updates.");
    CheckForUpdates(main, "");
}

TEST_F(Commands, TheTopicListOpensItsTopics) {
    OpenGuide();
    ListView& topics = main.topics.ListTopics;
    topics.Select(topics.FirstWith(topic_cell::kFullPath, folder.Windows("p/b.htm")));
    EXPECT_TRUE(RunCommand(main, "poplstproperties"));
    EXPECT_EQ(main.window.TabStrip2.SelectedIndex(), right_tab::kProperties);
    EXPECT_EQ(main.window.EditTitle.Text(), "Bee");
    topics.Clear();
    EXPECT_FALSE(RunCommand(main, "poplstopen"));
    main.window.panes.inner_width = 15000;
    RunCommand(main, "expandpane");
    EXPECT_EQ(main.window.panes.imgSplitter.left, 1500);
}

TEST_F(Commands, TheWindowIsAskedForWhatItAloneCanDo) {
    std::string asked;
    main.window.close = [&] { asked += "close "; };
    main.window.show_about = [&] { asked += "about "; };
    EXPECT_TRUE(RunCommand(main, "fileexit") && RunCommand(main, "AboutQuorrelEdit"));
    EXPECT_EQ(asked, "close about ");
    OpenGuide();
    screen.ExpectForm("FormSettings", [](Form&) {});
    EXPECT_TRUE(RunCommand(main, "mnuqrsettings"));
}

}  // namespace
}  // namespace quorrel::test
