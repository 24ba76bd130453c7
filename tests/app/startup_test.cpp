#include "app/startup.hpp"

#include "app/form_settings.hpp"
#include "app/form_splash.hpp"
#include "app/form_startup.hpp"
#include "app/recent_projects.hpp"
#include "support/project_fixture.hpp"

namespace quorrel {
namespace {

class Startup : public test::ProjectFixture {
  protected:
    /// Settings with these recent entries; the files named are made.
    void WriteRecent(std::string_view section, const std::vector<std::string>& entries) {
        std::string text = "[" + std::string(section) + "]\r\n";
        for (std::size_t i = 0; i < entries.size(); ++i) {
            text += std::to_string(i) + "=" + entries[i] + "\r\n";
        }
        folder.Write("settings/qrrl_hj.ini", text);
    }
    std::string Project(const std::string& name) {
        folder.Write(name, "[OPTIONS]\r\nTitle=" + name + "\r\n\r\n[FILES]\r\n");
        return folder.Windows(name);
    }
};

TEST_F(Startup, TheEditionComesFromTheCommandLine) {
    EXPECT_TRUE(SelectsHtmlHelpEdition("x --html=1"));
    EXPECT_FALSE(SelectsHtmlHelpEdition("HTML"));
    EXPECT_TRUE(frmSplash("html").ShowsHtmlHelpPicture());
    LoadSettings(main, "");
    EXPECT_EQ(main.window.window.Caption(), "Quorrel JavaHelp Edition");
    EXPECT_TRUE(main.window.Named("jar").Visible());
    EXPECT_FALSE(main.window.Named("editjsfile").Visible());
    LoadSettings(main, "html");
    EXPECT_EQ(main.window.window.Caption(), "Quorrel HTML Help Edition");
    EXPECT_EQ(main.window.Named("viewjavahelp").Caption(), "&View Compiled Help File");
}

TEST_F(Startup, SettingsHaveTheirDefaults) {
    LoadSettings(main, "html");
    EXPECT_EQ(main.settings.hhc, "c:\\Program Files\\HTML Help Workshop\\hhc.exe");
    EXPECT_EQ(main.settings.main_spell_dic, "\\american.vtd");
    main.settings.found_main_dir = "C:\\found\\";
    LoadSettings(main, "html");
    EXPECT_EQ(main.settings.Template_Dir, "C:\\found\\Topic Templates\\htmlhelp");
    folder.Write(
        "settings/qrrl_hj.ini",
        "[locations]\nMain Dir=C:\\Q\\\n[Settings]\nuseexted=1\nexted= vi \npreserveHTML=0\n"
        "[HTML Help]\nhhc=x\n");
    LoadSettings(main, "html");
    EXPECT_EQ(main.settings.Template_Dir, "C:\\Q\\Topic Templates\\htmlhelp");
    EXPECT_EQ(main.settings.help_file, "C:\\Q\\qrrl_h.hlp>proc1");
    EXPECT_EQ(main.settings.custom_spell_dic, "C:\\Q\\custom.dic");
    EXPECT_TRUE(main.settings.use_ext_editor);
    // The stored value does not change the state at the start.
    EXPECT_TRUE(main.settings.preserve_html);
}

TEST_F(Startup, ARunGoesThroughTheSplashAndTheRecentProjects) {
    WriteRecent("Recent HTML Projects",
                {Project("a.hhp") + "|A", folder.Windows("gone.hhp") + "|B", Project("c.hhp")});
    folder.Write("settings/c.prj", "[IMAGE MAP]\r\nMapCount=4\r\n");
    screen.ExpectForm("frmSplash", [](Form&) {});
    screen.ExpectForm("FormStartup", [&](Form& form) {
        auto& startup = dynamic_cast<FormStartup&>(form);
        ASSERT_EQ(startup.ListProjects.Count(), 2);
        EXPECT_EQ(startup.ListProjects.At(2).Text(), "Untitled");
        startup.ListProjects.Select(&startup.ListProjects.At(2));
        startup.ListProjects_Click();
        startup.Command2_Click();
    });
    Form_Load(main, "html");
    EXPECT_EQ(main.project.proj, folder.Windows("c.hhp"));
    EXPECT_EQ(main.project.lngMapCount, 4);
}

TEST_F(Startup, TheDialogStaysWithoutAProject) {
    WriteRecent("Recent HTML Projects", {Project("a.hhp") + "|A"});
    LoadSettings(main, "html");
    FormStartup form(main);
    std::filesystem::remove(folder.Native("a.hhp"));
    screen.ExpectMessage("Cannot find file " + folder.Native("a.hhp") + ".");
    form.Command2_Click();
    EXPECT_TRUE(main.project.recent_proj.empty());
    screen.ExpectFileDialog("");
    form.Command4_Click();
    EXPECT_FALSE(form.closed);
    screen.ExpectFileDialog(Project("x.hhp"));
    form.Command4_Click();
    EXPECT_TRUE(form.closed);
}

TEST_F(Startup, TheRecentMenuShowsFiveAndShortensLongPaths) {
    std::vector<std::string> entries;
    for (int i = 0; i < 30; ++i)
        entries.push_back(
            Project("a_rather_long_folder_name/and_project" + std::to_string(i) + ".hhp") + "|T");
    WriteRecent("Recent Projects", entries);
    LoadSettings(main, "");
    EXPECT_EQ(main.recent.num_recent, 25);
    EXPECT_EQ(main.window.recent[4].Caption(),
              "&4  " + main.files.NativePath("...\\and_project4.hhp"));
    WriteRecent("Recent Projects", {entries[0]});
    LoadSettings(main, "");
    EXPECT_FALSE(main.window.recent[1].Visible());
}

TEST_F(Startup, SavingAProjectMovesItToTheTop) {
    LoadSettings(main, "html");
    main.project.project_title = "T";
    const auto save = [&](std::string proj) {
        main.project.proj = std::move(proj);
        UpdateRecentList(main);
    };
    for (int i = 0; i < 26; ++i) save("C:\\" + std::to_string(i) + ".hhp");
    // A full list takes no new project.
    EXPECT_EQ(main.recent.recent_list[0], "C:\\24.hhp|T");
    save("C:\\3.hhp");
    EXPECT_EQ(main.recent.recent_list[0], "C:\\3.hhp|T");
    EXPECT_EQ(main.recent.recent_list[24], "C:\\0.hhp|T");
    main.project.project_title = "New";
    save("C:\\3.hhp");
    EXPECT_EQ(main.recent.recent_list[0], "C:\\3.hhp|T") << "the first entry keeps even its title";
}

TEST_F(Startup, TheEndWritesTheRecentListOfTheEdition) {
    WriteRecent("Recent HTML Projects", {Project("a.hhp") + "|A", folder.Windows("gone.hhp") + "|B",
                                         Project("c.hhp") + "|C"});
    LoadSettings(main, "html");
    Form_Unload(main);
    EXPECT_EQ(folder.Read("settings/qrrl_hj.ini"),
              "[Recent HTML Projects]\r\n0=" + folder.Windows("a.hhp") + "|A\r\n1=" +
                  folder.Windows("c.hhp") + "|C\r\n2=\r\n3=\r\n[Settings]\r\npreserveHTML=1\r\n");
}

TEST_F(Startup, SettingsAreCheckedAndStored) {
    LoadSettings(main, "html");
    FormSettings form(main);
    form.CheckExtEditor.Value = true;
    screen.ExpectMessage("You must specify a path to an HTML editor.");
    form.OKButton_Click();
    form.CheckExtEditor.Value = false;
    screen.ExpectFileDialog(folder.Windows("editor"));
    form.Command2_Click();
    form.OKButton_Click();
    EXPECT_TRUE(form.closed);
    EXPECT_EQ(folder.Read("settings/qrrl_hj.ini"),
              "[Settings]\r\nuseexted=1\r\nexted=" + folder.Native("editor") + "\r\n");
    EXPECT_EQ(main.window.TabStrip2.SelectedIndex(), 2);
    EXPECT_FALSE(main.window.Command3.Enabled() || main.window.EditTitle.Enabled());
    FormSettings again(main);
    again.CheckExtEditor.Value = false;
    again.OKButton_Click();
    EXPECT_TRUE(main.window.Command3.Enabled());
    EXPECT_EQ(main.window.TabStrip2.SelectedIndex(), 2) << "the tab stays";
}

}  // namespace
}  // namespace quorrel
