#include "project/form_project_settings.hpp"

#include "app/commands.hpp"
#include "app/settings_file.hpp"
#include "project/form_add_graphic.hpp"
#include "project/side_files.hpp"
#include "support/topic_fixture.hpp"

namespace quorrel::test {
namespace {

using ProjectOptions = TopicFixture;

TEST_F(ProjectOptions, OfHtmlHelpGoToProjectAndSettings) {
    OpenDemo();
    main.project.ProjSettingsTab = 3;
    InDialog<FormProjectSettings>("FormProjectSettings", [&](FormProjectSettings& form) {
        EXPECT_EQ(form.tbsOptions.SelectedIndex(), 1) << "the command begins at the first page";
        EXPECT_EQ(form.tbsOptions.TabCaption(3), "HTML Help Utilities");
        EXPECT_EQ(form.EditTOCFile.Text(), "demo.hhc");
        form.tbsOptions.SelectedIndex = 2;
        form.EditImageDir.Text = std::string("C:\\pictures");
        screen.ExpectMessage(
            "You cannot specify a full path here. Enter only the name of a folder to be placed "
            "under your project directory.");
        form.cmdOK_Click();
        EXPECT_EQ(form.tbsOptions.SelectedIndex(), 1);

        form.EditImageDir.Text = std::string("art\\small");
        form.EditHTMLDir.Text = std::string("pages");
        form.EditMapFile.Text = std::string("new.h");
        form.EditTOCFile.Text = std::string("new.hhc");
        form.EditIndexFile.Text = std::string();
        form.EditHomeID.Text = std::string("first.htm");
        form.EditTitle.Text = std::string("Anew");
        screen.ExpectFileDialog("Z:\\usr\\bin\\chmcmd");
        form.Command1_Click();
        form.cmdOK_Click();
    });
    EXPECT_TRUE(RunCommand(main, "projopt"));
    EXPECT_EQ(main.project.hhcfile, Demo("new.hhc"));
    EXPECT_EQ(main.project.hhkfile, Demo("demo.hhk")) << "an empty name changes nothing";
    EXPECT_EQ(main.project.java_map_file, Demo("new.h"));
    EXPECT_EQ(main.project.project_def_topic, "first.htm");
    EXPECT_TRUE(main.contents.toc_dirty);
    EXPECT_FALSE(main.keywords.index_dirty);
    EXPECT_EQ(GetProj(main, "Settings", "html", ""), "pages");
    EXPECT_TRUE(files.FolderExists(Demo("art\\small")));
    EXPECT_EQ(main.settings.hhc, "Z:\\usr\\bin\\chmcmd");

    main.project.ProjSettingsTab = 3;
    InDialog<FormProjectSettings>("FormProjectSettings", [](FormProjectSettings& form) {
        EXPECT_EQ(form.tbsOptions.SelectedIndex(), 3);
        form.cmdCancel_Click();
    });
    ShowProjectSettings(main);
}

TEST_F(ProjectOptions, OfJavaHelpReplaceTheImages) {
    folder.Write("java/guide.hs", "<helpset><title>G</title></helpset>");
    Open("java/guide.hs", "");
    for (const char* id : {"second", "", "first"}) {
        main.topics.ListTopics.Add("T").SetSubItem(topic_cell::kMapId, id);
    }
    main.topics.ListAliases.Clear();
    for (const auto& [id, path] : {std::pair{"top", folder.Windows("java/Images/top.GIF")},
                                   {"mark", folder.Windows("java/HTML/a.htm#mark")},
                                   {"photo", "Images\\photo.jpg"}}) {
        main.topics.ListAliases.Add(id).SetSubItem(alias_cell::kPath, path);
    }
    InDialog<FormProjectSettings>("FormProjectSettings", [&](FormProjectSettings& form) {
        EXPECT_EQ(form.LabelHomeID.Caption(), "Default Topic (MapID)");
        EXPECT_EQ(form.EditHomeID.List(), (std::vector<std::string>{"first", "second"}));
        ASSERT_EQ(form.ListAliases.Count(), 2);
        InDialog<FormAddGraphic>("FormAddGraphic", [&](FormAddGraphic& add) {
            screen.ExpectMessage("You must enter both a graphic path and a MapID");
            add.OKButton_Click();
            screen.ExpectFileDialog(folder.Windows("java/Images/open.book.gif"));
            add.Command1_Click();
            EXPECT_EQ(add.EditPath.Text(), "Images\\open.book.gif");
            EXPECT_EQ(add.EditMapID.Text(), "open.book");
            add.EditMapID.Text = std::string("TOP");
            screen.ExpectMessage("This MapID has already been used.");
            add.OKButton_Click();
            add.EditMapID.Text = std::string("book");
            add.OKButton_Click();
        });
        form.Command5_Click();
        EXPECT_EQ(form.ListAliases.SelectedItem()->Text(), "book");
        form.ListAliases.Select(&form.ListAliases.At(1));
        form.Command6_Click();
        form.CheckJavaFTS.Value = true;
        form.EditJARPath.Text = std::string("Z:\\bin\\jar");
        form.cmdOK_Click();
    });
    projopt_Click(main);
    std::string aliases;
    for (int i = 1; i <= main.topics.ListAliases.Count(); ++i) {
        aliases += main.topics.ListAliases.At(i).Text() + " ";
    }
    EXPECT_EQ(aliases, "mark photo book ");
    EXPECT_TRUE(main.project.javahelp_do_fts);
    EXPECT_EQ(GetIni(main, "JavaHelp", "jar", ""), "Z:\\bin\\jar");
}

}  // namespace
}  // namespace quorrel::test
