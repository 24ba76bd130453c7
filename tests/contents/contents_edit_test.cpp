// Editing the contents by keys, menus and the item panel.
#include "app/command_tables.hpp"
#include "app/commands.hpp"
#include "contents/contents_fixture.hpp"
#include "contents/contents_item_panel.hpp"
#include "contents/contents_tree.hpp"
#include "project/save_project.hpp"

namespace quorrel::test {
namespace {

class ContentsEdit : public ContentsFixture {
  protected:
    [[nodiscard]] bool CanDelete() {
        OpenMenu(main, *FindMenu("mnutreepop"));
        return main.window.Named("pop1delete").Enabled;
    }
    NodeData Saved(std::string_view caption) { return UnpackNodeData(Node(caption).Tag); }
};

TEST_F(ContentsEdit, ACaptionIsNeverEmpty) {
    Start("html", "ab");
    Select("a");
    screen.ExpectMessage("You must enter some text for this Contents item.");
    EXPECT_FALSE(Tree1_AfterLabelEdit(main, ""));
    EXPECT_TRUE(main.contents.toc_dirty);
    EXPECT_FALSE(main.project.project_dirty);
    EXPECT_TRUE(Tree1_AfterLabelEdit(main, "n"));
    EXPECT_TRUE(IsDirty());
}

TEST_F(ContentsEdit, BooksAreMadeBehindTheSelectionAndDeletedAfterAQuestion) {
    Start("html", "ab");
    popnewbook_Click(main);
    Select("a");
    popnewbook_Click(main);
    EXPECT_EQ(Shape(), "aNew Folder(New Topic)bNew Folder(New Topic)");
    const TreeNode& book = Node("New Folder");
    EXPECT_EQ(book.Image * 10 + book.SelectedImage, 11);
    EXPECT_EQ(book.Child()->Tag, "");
    EXPECT_TRUE(book.Expanded) << "the page is visible";
    for (const MessageAnswer answer : {MessageAnswer::kNo, MessageAnswer::kYes}) {
        Select("New Folder");
        screen.ExpectMessage("Are you sure you want to delete this item and all its children?",
                             answer);
        Tree1_KeyUp(main, 46);
    }
    Select("a");
    Tree1_KeyUp(main, 46);
    Tree1_KeyUp(main, 46);
    EXPECT_EQ(Shape(), "New Folder(New Topic)b") << "without a selection nothing is deleted";
}

TEST_F(ContentsEdit, TheMenuFollowsProjectAndSelection) {
    Start("html", "a");
    Select("a");
    LoadTOCProperties(main);
    main.window.EditFrame.Text = std::string("f");
    EXPECT_TRUE(CanDelete());
    EXPECT_EQ(Saved("a").extra, "0,f,,,") << "what was typed is kept first";
    main.project.proj.clear();
    EXPECT_FALSE(CanDelete());
}

TEST_F(ContentsEdit, ThePanelShowsAndStoresTheNode) {
    Start("html", "ab");
    WindowControls& window = main.window;
    Node("a").Tag = PackNodeData("C:\\p\\s\\x#y.htm#m", "t", "11,frame,win,1,");
    Select("a");
    TreeNodeChanged(main);
    EXPECT_EQ(window.EditTOCLocation.Text(), "s\\x#y.htm");
    EXPECT_EQ(window.ComboBookmark.Text(), "m");
    EXPECT_EQ(window.EditIcon.Text() + window.EditFrame.Text() + window.EditWindow.Text(),
              "11framewin");
    EXPECT_TRUE(window.CheckMarkNew.Value);
    EXPECT_FALSE(main.contents.toc_item_dirty || IsDirty()) << "showing is no edit";

    window.EditTOCLocation.Text = std::string("../o.htm");
    window.CheckMarkNew.Value = false;
    Select("b");
    EXPECT_EQ(Saved("a").location, "C:\\p\\s\\x#y.htm#m");
    TreeNodeChanged(main);
    EXPECT_EQ(Node("a").Tag, "C:\\o.htm#m#^##^#11,frame,win,,#^#") << "to the node it came from";
    EXPECT_EQ(window.ComboBookmark.Text(), "");

    window.EditTOCText.Text = std::string("n");
    window.EditIcon.Text = std::string();
    window.EditTOCLocation.Text = std::string("https://h/x");
    EXPECT_EQ(window.EditIcon.Text(), "13");
    CommitContentsItem(main);
    EXPECT_EQ(Saved("n").location, "https://h/x") << "an address is no path";
}

TEST_F(ContentsEdit, ADamagedTagShowsEmptyFields) {
    Start("html", "a");
    Select("a");
    const WindowControls& window = main.window;
    const std::pair<const char*, const char*> cases[] = {{"", "0||"},
                                                         {"C:\\p\\a.htm#^#", "0||"},
                                                         {"#^##^#0,f#^#", "||"},
                                                         {"#^##^#7,f,w,1#^#", "7|f|w"}};
    for (const auto& [tag, icon_frame_window] : cases) {
        Node("a").Tag = tag;
        TreeNodeChanged(main);
        EXPECT_EQ(
            window.EditIcon.Text() + "|" + window.EditFrame.Text() + "|" + window.EditWindow.Text(),
            icon_frame_window);
        EXPECT_FALSE(window.CheckMarkNew.Value);
    }
}

TEST_F(ContentsEdit, JavaHelpFindsOrMakesTheMapId) {
    Start("", "ab");
    WindowControls& window = main.window;
    ListView& topics = main.topics.ListTopics;
    for (const char* id : {"first", "last"}) {
        ListRow& row = topics.Add("t");
        row.SetSubItem(topic_cell::kFullPath, "c:\\P\\A.htm");
        row.SetSubItem(topic_cell::kMapId, id);
    }
    main.topics.ListAliases.Add("pic").SetSubItem(alias_cell::kPath, "C:\\p\\x.GIF");
    main.topics.ListAliases.Add("page").SetSubItem(alias_cell::kPath, "C:\\p\\x.htm");
    main.topics.ListAliases.Add("photo").SetSubItem(alias_cell::kPath, "p.jpg");
    Node("b").Tag = PackNodeData("C:\\p\\b.htm", "", "pic");
    Select("b");
    window.TabStrip2.SelectedIndex = right_tab::kOrganizeTOC;
    EXPECT_EQ(window.ComboIcon.List(), (std::vector<std::string>{"Default", "pic", "photo"}));
    EXPECT_EQ(window.ComboIcon.Text(), "pic");
    Select("a");
    TreeNodeChanged(main);
    window.ComboIcon.ListIndex = 1;
    CommitContentsItem(main);
    EXPECT_EQ(Node("a").Tag, "C:\\p\\a.htm#^#last#^#pic#^#");
    window.ComboBookmark.Text = std::string("m");
    CommitContentsItem(main);
    EXPECT_EQ(Saved("a").target, "") << "no topic is open to name it after";
    main.topics.current_topic_index = 1;
    for (int i = 0; i < 2; ++i) {
        SaveTOCProperties(main);
        EXPECT_EQ(Node("a").Tag, "C:\\p\\a.htm#m#^#first_m#^#pic#^#");
        EXPECT_EQ(main.topics.ListAliases.Count(), 4);
    }
}

TEST_F(ContentsEdit, ABookIsMadeAndUnmade) {
    Start("html", "x(a(bc(d))e)f");
    Select("f");
    LoadTOCProperties(main);
    main.window.CheckTOCIsBook.Value = true;
    EXPECT_EQ(Shape(), "x(a(bc(d))e)f(New Topic)");
    Select("x");
    LoadTOCProperties(main);
    main.window.CheckTOCIsBook.Value = false;
    EXPECT_EQ(Shape(), "xa(bc(d))ef(New Topic)");
    EXPECT_EQ(Node("x").Image * 10 + Node("x").SelectedImage, 33);
    EXPECT_EQ(Saved("e").location, "C:\\p\\e.htm");
}

TEST_F(ContentsEdit, KeysMoveTheSelectedNode) {
    Start("html", "a(b)cd");
    const struct {
        const char* node;
        NodeMove direction;
        const char* shape;  // "" where it cannot go
    } steps[] = {
        {"a", NodeMove::kUp, ""},         {"d", NodeMove::kDown, ""},
        {"a", NodeMove::kOut, ""},        {"a", NodeMove::kIn, ""},
        {"a", NodeMove::kDown, "ca(b)d"}, {"d", NodeMove::kUp, "cda(b)"},
        {"a", NodeMove::kIn, "cd(a(b))"}, {"b", NodeMove::kOut, "cd(ab)"},
    };
    for (const auto& [node, direction, shape] : steps) {
        const bool can_go = *shape != '\0';
        const std::string before = Shape();
        Select(node);
        EXPECT_EQ(MoveSelectedNode(main, direction), can_go);
        EXPECT_EQ(Shape(), can_go ? shape : before);
        EXPECT_EQ(main.contents.Tree1.SelectedItem(), &Node(node));
        EXPECT_EQ(IsDirty(), can_go);
        main.project.project_dirty = false;
    }
    EXPECT_EQ(Node("d").Image, node_image::kOpenBook) << "it holds nodes now";
}

TEST_F(ContentsEdit, EditsOfThePanelAreInTheSavedProject) {
    folder.Write("g.hhp", "[OPTIONS]\nTitle=G\n[FILES]\na.htm\n;Title=Ay\n\n");
    folder.Write("a.htm", "<title>Ay</title><body>a</body>");
    folder.Write("g.hhc",
                 "<LI>\n<param name=Name value=Ay>\n<param name=Local value=a.htm>\n</OBJECT>\n");
    Open("g.hhp");
    main.window.TabStrip2.SelectedIndex = right_tab::kOrganizeTOC;
    main.window.EditFrame.Text = std::string("two");
    main.window.TabStrip2.SelectedIndex = right_tab::kNormal;
    EXPECT_EQ(Saved("Ay").extra, ",two,,,") << "a change of tab keeps it";
    main.window.EditFrame.Text = std::string("three");
    screen.ExpectMessage(
        "The current project has been modified.\r\n\r\nDo you want to save changes?",
        MessageAnswer::kCancel);
    EXPECT_FALSE(Form_QueryUnload(main));
    EXPECT_EQ(Saved("Ay").extra, ",three,,,");
}

}  // namespace
}  // namespace quorrel::test
