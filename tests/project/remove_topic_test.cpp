#include "app/commands.hpp"
#include "contents/keyword_store.hpp"
#include "contents/node_data.hpp"
#include "editor/document_text.hpp"
#include "project/open_topic.hpp"
#include "project/save_project.hpp"
#include "project/topic_list.hpp"
#include "project/topic_rows.hpp"
#include "support/topic_fixture.hpp"

namespace quorrel::test {
namespace {

class RemovedTopic : public TopicFixture {
  protected:
    RemovedTopic() { OpenDemo(); }

    TreeNode& AddNode(TreeNode* parent, const std::string& text, const std::string& file) {
        TreeNode& node = Tree().Add(parent, NodeRelation::kChild, text, 3, 3);
        node.Tag = PackNodeData(Demo(file), "", "");
        return node;
    }
};

TEST_F(RemovedTopic, LeavesIndexAndContents) {
    AddTopic(main, "Third", Demo("third.htm"), "bread;bread    :rye;", "t", "7");
    AddToIndex(main, "First", Demo("first.htm"), "bread;");
    Tree().Clear();
    AddNode(nullptr, "a", "THIRD.htm");
    AddNode(nullptr, "b", "third.htm");
    TreeNode& book = AddNode(nullptr, "c", "third.htm");
    AddNode(&book, "inside", "first.htm");
    AddNode(nullptr, "d", "third.htm#mark");
    AddNode(nullptr, "e", "third.htm");
    main.contents.toc_dirty = main.project.project_dirty = false;
    Topics().Select(&Topic("third.htm"));
    const std::string below =
        "1 item of the contents that lies below the topic goes with it.\r\n\r\nDo you want to ";
    screen.ExpectMessage(
        folder.Native("demo/third.htm") + " will be deleted.\r\n\r\n" + below + "delete the topic?",
        MessageAnswer::kNo);
    EXPECT_TRUE(RunCommand(main, "poplstdelete"));
    screen.ExpectMessage(below + "remove the topic from the project?", MessageAnswer::kNo);
    EXPECT_TRUE(RunCommand(main, "poplstremove"));
    EXPECT_EQ(Topics().Count(), 3);
    EXPECT_EQ(Tree().Count(), 6);
    screen.ExpectMessage(below + "remove the topic from the project?", MessageAnswer::kYes);
    EXPECT_TRUE(RunCommand(main, "poplstremove"));
    EXPECT_EQ(Outline(), "b3 d3 ") << "the node behind a removed one is passed over";
    EXPECT_TRUE(main.contents.toc_dirty);
    const ListView& index = main.keywords.ListKeywords;
    ASSERT_EQ(index.Count(), 1);
    EXPECT_EQ(index.At(1).SubItems(1), "First>" + Demo("first.htm") + ";:");
    EXPECT_EQ(Topics().SelectedItem(), &Topics().At(2)) << "the last row went";
}

TEST_F(RemovedTopic, GivesWayToTheNextOne) {
    AddTopic(main, "Goner", Demo("goner.htm"), "", "g", "");
    folder.Write("demo/goner.htm", "goner");
    SelectAndOpen("goner.htm");
    main.editor.TopicPropDirty = true;
    main.window.EditTitle.Text = std::string("typed and not stored");
    RemoveTopic(main, false);
    EXPECT_EQ(main.editor.main_path, Demo("html\\second.htm"));
    EXPECT_EQ(main.topics.current_topic_index, 2);
    EXPECT_EQ(Topic("html\\second.htm").Text(), "Second");
    EXPECT_TRUE(folder.Exists("demo/goner.htm"));

    // What is open elsewhere keeps its number.
    Topics().Select(&Topic("first.htm"));
    surface.SetDocumentHTML("<title>Second</title><body>edited");
    ASSERT_TRUE(SetDirty(main));
    RemoveTopic(main, true);
    EXPECT_EQ(main.topics.current_topic_index, 1);
    EXPECT_FALSE(folder.Exists("demo/first.htm"));

    EXPECT_TRUE(folder.Exists("demo/html/second.htm.tmp.htm"));
    RemoveTopic(main, true);
    EXPECT_EQ(Topics().Count(), 0);
    EXPECT_EQ(main.editor.main_path, "");
    EXPECT_EQ(main.window.EditTitle.Text(), "");
    EXPECT_FALSE(main.editor.TopicPropDirty);
    EXPECT_FALSE(folder.Exists("demo/html/second.htm"));
    EXPECT_FALSE(folder.Exists("demo/html/second.htm.tmp.htm"));
    EXPECT_EQ(log_lines, std::vector<std::string>{});
    RemoveTopic(main, true);
    EXPECT_FALSE(RunCommand(main, "poplstdelete"));
}

TEST_F(RemovedTopic, UnsavedChangesGoIntoTheFileOnlyIfTheAuthorSaysSo) {
    const std::string text = "<title>Second</title><body>edited and not saved";
    const std::string file = "demo/html/second.htm";
    const std::string before = folder.Read(file);
    const std::string question =
        folder.Native(file) +
        " has changes that are not saved yet. The file stays where it is when the topic is removed "
        "from the project.\r\n\r\nDo you want to save the changes in it?";
    for (const auto answer : {MessageAnswer::kCancel, MessageAnswer::kNo, MessageAnswer::kYes}) {
        for (const bool is_open : {true, false}) {
            folder.Write(file, before);
            OpenDemo();
            SelectAndOpen("html\\second.htm");
            surface.SetDocumentHTML(text);
            if (!is_open) SelectAndOpen("first.htm");
            Topics().Select(&Topic("html\\second.htm"));
            screen.ExpectMessage(question, answer);
            RemoveTopic(main, false);
            const bool stays = answer == MessageAnswer::kCancel;
            EXPECT_EQ(Topics().Count(), stays ? 2 : 1);
            EXPECT_EQ(folder.Read(file), answer == MessageAnswer::kYes ? text : before);
            EXPECT_EQ(folder.Exists(file + ".tmp.htm"), stays);
            main.project.project_dirty = main.editor.ActiveDirty = false;
            CloseDocument(main, "");
            files.DeleteFile(folder.Windows(file + ".tmp.htm"));
        }
    }
    // With its file the changes go too.
    folder.Write(file, before);
    OpenDemo();
    SelectAndOpen("html\\second.htm");
    surface.SetDocumentHTML(text);
    RemoveTopic(main, true);
    EXPECT_FALSE(folder.Exists(file));
    EXPECT_FALSE(folder.Exists(file + ".tmp.htm"));
}

TEST_F(RemovedTopic, AFileThatIsGoneIsLogged) {
    Topics().Select(&Topic("first.htm"));
    files.DeleteFile(Demo("first.htm"));
    RemoveTopic(main, true);
    EXPECT_EQ(Topics().Count(), 1);
    EXPECT_EQ(main.log.LastLine(), "MainForm RemoveTopic: 53 File not found");
}

TEST_F(RemovedTopic, RowsCanBeDraggedAndCopied) {
    SelectAndOpen("html\\second.htm");
    Topic("first.htm").SetSubItem(topic_cell::kInteger, "42");
    Topics().Select(&Topic("first.htm"));
    ListTopics_DragStart(main);
    EXPECT_EQ(main.contents.drag_source, 1);
    EXPECT_EQ(main.contents.drag_list_item, &Topic("first.htm"));
    EXPECT_EQ(main.contents.tree_drag_text, " <a href=../first.htm >First</a> ");
    ListTopics_DragEnd(main);
    EXPECT_EQ(main.contents.drag_source, -1);
    EXPECT_EQ(main.contents.drag_list_item, nullptr);

    ListTopics_Click(main);
    EXPECT_TRUE(RunCommand(main, "popcopyinteger"));
    ListTopics_Click(main);
    EXPECT_EQ(screen.clipboard, "42");

    AddTopic(main, "A first one", Demo("a.htm"), "", "a", "");
    EXPECT_EQ(main.topics.current_topic_index, 3) << "it has moved down";
    SortTopics(main, topic_cell::kInteger);
    EXPECT_EQ(&Topics().At(main.topics.current_topic_index), &Topic("html\\second.htm"));
}

}  // namespace
}  // namespace quorrel::test
