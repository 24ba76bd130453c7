#include "project/new_topic.hpp"

#include "app/commands.hpp"
#include "app/startup.hpp"
#include "contents/node_data.hpp"
#include "contents/open_contents_item.hpp"
#include "project/form_new_folder.hpp"
#include "project/side_files.hpp"
#include "support/topic_fixture.hpp"

namespace quorrel::test {
namespace {

using NewTopic = TopicFixture;

TEST_F(NewTopic, ComesFromATemplateIntoTableIndexContentsAndFolder) {
    OpenDemo();
    SelectAndOpen("first.htm");
    InNewTopic([&](FormNewTopic& form) {
        EXPECT_EQ(form.FileTemplate.List(), (std::vector<std::string>{"Fancy.HTM", "Plain.htm"}));
        EXPECT_EQ(form.ComboPrefix.Text(), "IDH_");
        EXPECT_EQ(form.EditInteger.Text(), "1000");
        form.EditTitle.Text = std::string("Über uns!");
        EXPECT_EQ(form.EditFile.Text(), "_ber_uns_.htm");
        form.SetFolder(Demo("html\\"));
        EXPECT_EQ(form.EditFile.Text(), "\\html\\_ber_uns_.htm");
        EXPECT_EQ(form.EditAlias.Text(), "_ber_uns_");
        EXPECT_EQ(form.EditKeyword.Text(), "Über uns!");
        form.Command1_Click();
        form.EditSubKey.Text = std::string("loaf");
        screen.ExpectMessage("You must enter a main keyword");
        form.Command1_Click();
        form.EditKeyword.Text = std::string(" Bread ");
        form.Command1_Click();
        form.FileTemplate.ListIndex = 1;
        form.OkCmd_Click();
    });
    FileNew_Click(main);

    EXPECT_EQ(folder.Read("demo/html/_ber_uns_.htm"),
              "<title>\334ber uns!</title>\n<body>\334ber uns!.");
    EXPECT_EQ(folder.Read("demo/html/master.js"), "the master.js");
    const ListRow& row = Topic("html\\_ber_uns_.htm");
    EXPECT_EQ(row.SubItems(topic_cell::kFullPath), Demo("html\\_ber_uns_.htm"));
    EXPECT_EQ(row.SubItems(topic_cell::kLocation), "\\html\\_ber_uns_.htm");
    EXPECT_EQ(row.SubItems(topic_cell::kMapId), "IDH__ber_uns_");
    EXPECT_EQ(row.SubItems(topic_cell::kKeywords), "Bread    :loaf;Über uns!;");
    const ListView& index = main.keywords.ListKeywords;
    EXPECT_EQ(index.At(2).SubItems(1), "Über uns!>" + Demo("html\\_ber_uns_.htm") + ";:");
    EXPECT_EQ(Outline(), "Über uns!3 ");
    EXPECT_EQ(Tree().SelectedItem()->Tag,
              PackNodeData(Demo("html\\_ber_uns_.htm"), "IDH__ber_uns_", ""));
    EXPECT_TRUE(main.project.project_dirty);
    EXPECT_EQ(main.editor.main_path, Demo("html\\_ber_uns_.htm"));
    EXPECT_EQ(GetProj(main, "Settings", "last_path", ""), Demo("html"));
    EXPECT_EQ(GetProj(main, "Settings", "prefix list", ""), "IDH_,");

    folder.Write("demo/html/master.js", "mine");
    InNewTopic([&](FormNewTopic& form) {
        EXPECT_EQ(form.ComboPrefix.List(), std::vector<std::string>{"IDH_"});
        EXPECT_EQ(form.EditInteger.Text(), "1001");
        form.EditTitle.Text = std::string("Größe");
        form.OkCmd_Click();
    });
    FileNew_Click(main);
    EXPECT_EQ(folder.Read("demo/html/Gr__e.htm"),
              "<meta charset=utf-8><title>Größe</title><body>Fancy");
    EXPECT_EQ(folder.Read("demo/html/master.js"), "mine");
}

TEST_F(NewTopic, IsRefusedWhereItCannotBe) {
    OpenDemo();
    Topic("first.htm").SetSubItem(topic_cell::kMapId, "Taken");
    InNewTopic([&](FormNewTopic& form) {
        form.EditTitle.Text = std::string("A title");
        form.EditFile.Text = std::string();
        screen.ExpectMessage("You must specify a name for your topic file.");
        form.OkCmd_Click();

        form.EditFile.Text = std::string("first");
        screen.ExpectMessage(
            "A topic with this file name already exists in the project. Please choose another "
            "file name");
        form.OkCmd_Click();
        EXPECT_EQ(form.EditFile.Text(), "first.htm");

        folder.Write("demo/there.htm", "mine");
        folder.Write("demo2/there.htm", "another project's");
        form.EditFile.Text = std::string("there.htm");
        screen.ExpectMessage("The file " + folder.Native("demo/there.htm") +
                                 " exists already.\r\n\r\nDo you want to replace it?",
                             MessageAnswer::kNo);
        form.OkCmd_Click();
        EXPECT_EQ(folder.Read("demo/there.htm"), "mine");

        form.SetFolder(folder.Windows("demo2"));
        screen.ExpectMessage(
            "HTML Topic files must be created in a directory within the project hierarchy.");
        form.OkCmd_Click();

        form.SetFolder(folder.Windows("inst"));
        screen.ExpectMessage(
            "HTML Topic files must be created in a directory within the project hierarchy.");
        form.OkCmd_Click();

        form.EditFile.Text = std::string("taken.htm");
        form.EditAlias.Text = std::string("tAKEN");
        screen.ExpectMessage(
            "A topic with this MapID already exists in the project. Please choose another MapID");
        form.OkCmd_Click();

        folder.Write("demo/file", "");
        form.EditAlias.Text = std::string("other");
        form.EditFile.Text = std::string("file\\a.htm");
        screen.ExpectMessage("The file " + folder.Native("demo/file/a.htm") +
                             " could not be written.\r\n\r\nFormNewTopic OkCmd_Click: 58 File "
                             "already exists");
        form.OkCmd_Click();
        EXPECT_FALSE(form.closed);
        form.CancelCmd_Click();
    });
    FileNew_Click(main);
    EXPECT_EQ(main.project.next_integer, 1000) << "taken by the dialog that was cancelled";
}

TEST_F(NewTopic, NeverSharesAnIdentifier) {
    OpenDemo();
    SelectAndOpen("first.htm");
    for (const char* sub_folder : {"", "html"}) {
        InNewTopic([&](FormNewTopic& form) {
            form.SetFolder(Demo(sub_folder));
            form.EditTitle.Text = std::string("Overview");
            form.OkCmd_Click();
        });
        FileNew_Click(main);
    }
    const auto id = [&](const char* file) { return Topic(file).SubItems(topic_cell::kMapId); };
    EXPECT_EQ(id("Overview.htm"), "IDH_Overview");
    EXPECT_EQ(id("html\\Overview.htm"), "IDH_Overview2") << "the row of the other one";
}

TEST_F(NewTopic, ATemplateKeepsTheMarkAndIsEditedAtOnce) {
    OpenDemo();
    SelectAndOpen("first.htm");
    InNewTopic([&](FormNewTopic& form) {
        EXPECT_EQ(form.Caption, "Create New Topic Template");
        EXPECT_FALSE(form.Dir1.Enabled());
        EXPECT_EQ(form.EditFile.Text(), "NewTemplate.htm");
        form.FileTemplate.ListIndex = 1;
        form.EditFile.Text = std::string("Mine");
        form.OkCmd_Click();
    });
    newtemplate_Click(main);
    EXPECT_EQ(folder.Read("inst/Topic Templates/htmlhelp/Mine.htm"),
              "<title>[TITLE]</title>\n<body>[TITLE].");
    EXPECT_EQ(main.editor.main_path, main.settings.Template_Dir + "\\Mine.htm");

    // Another topic saves the template first.
    surface.SetDocumentHTML("<title>[TITLE]</title><body>edited");
    InNewTopic([&](FormNewTopic& form) { form.CancelCmd_Click(); });
    FileNew_Click(main);
    EXPECT_EQ(folder.Read("inst/Topic Templates/htmlhelp/Mine.htm"),
              "<title>[TITLE]</title><body>edited");
    EXPECT_EQ(main.editor.new_topic_template, "False");
}

TEST_F(NewTopic, ATemplateIsOneUntilItIsLeft) {
    const std::string mine = "inst/Topic Templates/htmlhelp/Mine.htm";
    OpenDemo();
    SelectAndOpen("first.htm");
    main.window.EditAlias.Text = std::string("IDH_FIRST");
    InNewTopic([&](FormNewTopic& form) {
        form.EditFile.Text = std::string("Mine");
        form.OkCmd_Click();
    });
    newtemplate_Click(main);
    EXPECT_EQ(Topic("first.htm").SubItems(topic_cell::kMapId), "IDH_FIRST");
    main.window.TabStrip2.SelectedIndex = right_tab::kSource;
    source.SetText("<title>[TITLE]</title><body>typed in the source");
    screen.ExpectMessage(
        "The current project has been modified.\r\n\r\nDo you want to save changes?",
        MessageAnswer::kYes);
    EXPECT_TRUE(Form_QueryUnload(main));
    EXPECT_EQ(folder.Read(mine), "<title>[TITLE]</title><body>typed in the source");

    // It has been saved, so nothing is asked; what is edited next is a topic.
    SelectAndOpen("first.htm");
    surface.SetDocumentHTML("<title>First</title><body>edited");
    SelectAndOpen("html\\second.htm");
    EXPECT_EQ(folder.Read("demo/first.htm.tmp.htm"), "<title>First</title><body>edited");
    EXPECT_EQ(folder.Read(mine), "<title>[TITLE]</title><body>typed in the source");
}

TEST_F(NewTopic, TakesItsPlaceInTheContents) {
    OpenDemo();
    const auto add = [&](const char* command, const char* title) {
        InNewTopic([title](FormNewTopic& form) {
            form.EditTitle.Text = std::string(title);
            form.OkCmd_Click();
        });
        EXPECT_TRUE(RunCommand(main, command));
    };
    add("popnewtopic", "A");
    add("popnewtopic", "D");
    Tree().Select(&Tree().At(1));
    add("popnewbooktopic", "B");
    EXPECT_EQ(Outline(), "A3 B1(New Topic4 ) D3 ");
    add("popnewtopic", "X");
    add("popnewbooktopic", "Y");
    Tree().Select(Tree().Roots()[1]);
    add("popnewtopic", "Z");
    EXPECT_EQ(Outline(), "A3 B1(New Topic4 X3 Z3 Y1(New Topic4 ) ) D3 ")
        << "a topic in a book goes behind the last one without children";
    Tree().Select(nullptr);
    main.window.TabStrip1.SelectedIndex = left_tab::kTopics;
    main.contents.toc_dirty = false;
    add("poplstnewtopic", "W");
    EXPECT_EQ(Tree().Count(), 8) << "the contents are not in view";
}

TEST_F(NewTopic, IsOfferedForAnEmptyContentsItem) {
    OpenDemo();
    TreeNode& book = Tree().Add(nullptr, NodeRelation::kChild, "Book", 1, 1);
    Tree().Add(&book, NodeRelation::kChild, "To come", 3, 3);
    Tree().Select(&book);
    OpenTOCItem(main);
    Tree().Select(book.Child());
    InNewTopic([](FormNewTopic& form) {
        EXPECT_EQ(form.EditTitle.Text(), "To come");
        EXPECT_EQ(form.EditFile.Text(), "To_come.htm");
        form.CancelCmd_Click();
    });
    OpenTOCItem(main);
}

TEST_F(NewTopic, AJavaHelpTopicHasNoNumberAndGoesToItsFolder) {
    folder.Write("java/guide.hs", "<helpset><title>G</title></helpset>");
    folder.Write("java/guide.prj", "[Settings]\r\nhtml=HTML\r\n");
    Open("java/guide.hs", "");
    InNewTopic([&](FormNewTopic& form) {
        EXPECT_EQ(form.LabelAlias.Caption(), "MapID");
        EXPECT_FALSE(form.EditInteger.Visible());
        InDialog<FormNewFolder>("FormNewFolder", [&](FormNewFolder& new_folder) {
            new_folder.Text1.Text = std::string("..");
            new_folder.OKButton_Click();
            EXPECT_EQ(form.Dir1.Path(), folder.Windows("java")) << "steps up are taken at once";
            new_folder.Text1.Text = std::string("HTML/Inner");
            new_folder.OKButton_Click();
        });
        form.Command2_Click();
        form.EditTitle.Text = std::string("Topic");
        form.ComboPrefix.Text = std::string(" p_");
        form.FileTemplate.ListIndex = -1;
        form.OkCmd_Click();
    });
    FileNew_Click(main);
    EXPECT_EQ(folder.Read("java/HTML/Inner/Topic.htm"),
              "<HTML><TITLE>Topic</TITLE><BODY>Topic<P></BODY></HTML>");
    EXPECT_EQ(Topics().At(1).SubItems(topic_cell::kMapId), "p_Topic");
    EXPECT_EQ(main.project.last_new_prefix, " p_");
}

}  // namespace
}  // namespace quorrel::test
