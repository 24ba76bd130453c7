// Drags in the contents tree, from the topics into it, and from it into the editor.
#include "contents/contents_drag.hpp"

#include "contents/contents_fixture.hpp"
#include "contents/contents_tree.hpp"
#include "editor/surface_events.hpp"

namespace quorrel::test {
namespace {

class ContentsDrag : public ContentsFixture {
  protected:
    /// Drags one node over the row of another, to a place in twips below the row's upper edge.
    int DragOver(std::string_view from, std::string_view to, double y = 0) {
        Tree1_MouseDown(main, 310, Top(from));
        EXPECT_EQ(Tree1_OLEStartDrag(main), 3);
        return Tree1_OLEDragOver(main, 310, Top(to) + y);
    }
    int Drag(std::string_view from, std::string_view to, double y = 0) {
        const double top = Top(to);
        if (DragOver(from, to, y) != drop_effect::kNone) Tree1_OLEDragDrop(main, 310, top + y);
        return Tree1_OLECompleteDrag(main);
    }
};

TEST_F(ContentsDrag, ANodeGoesBeforeOrBehindTheOneUnderThePointer) {
    const struct {
        const char *from, *to;
        double y;
        int effect;
        const char* shape;
    } steps[] = {
        // Up to 120 twips above the lower edge of a row of 240 is before.
        {"d", "a", 119, 2, "da(bc)e"}, {"d", "a", 120, 2, "a(bc)de"}, {"e", "b", 0, 2, "a(ebc)d"},
        {"b", "d", 200, 2, "a(ec)db"}, {"a", "a", 0, 0, "a(ec)db"},   {"a", "c", 0, 1, "a(ec)db"},
    };
    Start("html", "a(bc)de");
    for (const auto& [from, to, y, effect, shape] : steps) {
        EXPECT_EQ(Drag(from, to, y), effect) << from << to;
        EXPECT_EQ(Shape(), shape);
        EXPECT_FALSE(Node(from).Bold);
        EXPECT_EQ(main.contents.Tree1.SelectedItem(), &Node(from));
        if (effect == drop_effect::kMove) {
            EXPECT_EQ(main.contents.toc_item_node, &Node(from));
        }
        EXPECT_EQ(main.contents.drag_source, -1);
    }
    EXPECT_TRUE(IsDirty());
}

TEST_F(ContentsDrag, TargetsAreJudgedByTheirPaths) {
    Start("html", "a(b(c))a(d)e");
    EXPECT_EQ(DragOver("a", "c"), drop_effect::kNone) << "inside of what is dragged";
    EXPECT_TRUE(main.contents.is_target_refused);
    EXPECT_EQ(Tree1_OLEDragOver(main, 310, Top("d")), drop_effect::kNone) << "the same caption";
    // A drop that should not have come must not take the tree with it.
    main.contents.Tree1.SetDropHighlight(&Node("c"));
    Tree1_OLEDragDrop(main, 310, Top("c"));
    EXPECT_EQ(Tree1_OLECompleteDrag(main), drop_effect::kNone);
    EXPECT_EQ(Shape(), "a(b(c))a(d)e");
    // Beside the caption the row still counts, below all rows nothing does.
    EXPECT_EQ(DragOver("e", "b"), drop_effect::kMove);
    EXPECT_EQ(Tree1_OLEDragOver(main, 310, 20000), drop_effect::kNone);
    EXPECT_EQ(main.contents.Tree1.DropHighlight(), nullptr);
    EXPECT_EQ(Tree1_OLECompleteDrag(main), drop_effect::kCopy) << "it ended elsewhere";
}

TEST_F(ContentsDrag, ATopicRowIsCopied) {
    Start("html", "");
    for (const char* title : {"x", "y"}) {
        ListRow& row = main.topics.ListTopics.Add(title);
        row.SetSubItem(topic_cell::kFullPath, "C:\\p\\t.htm");
        row.SetSubItem(topic_cell::kMapId, "id");
        main.contents.drag_list_item = &row;
        main.contents.drag_source = drag_kind::kTopicRow;
        EXPECT_EQ(Tree1_OLEDragOver(main, 10, 0), drop_effect::kCopy);
        Tree1_OLEDragDrop(main, 10, 0);
        EXPECT_EQ(main.contents.Tree1.SelectedItem(), &Node(title));
        EXPECT_EQ(main.contents.drag_list_item, nullptr);
    }
    EXPECT_EQ(Shape(), "yx");
    EXPECT_EQ(Node("y").Tag, "C:\\p\\t.htm#^#id#^##^#");
    EXPECT_EQ(main.window.EditTOCText.Text(), "y");
    EXPECT_TRUE(IsDirty());
}

TEST_F(ContentsDrag, TheReferencesGoWithTheirNodesAndRows) {
    Start("html", "a(b)c");
    main.window.TabStrip2.SelectedIndex = right_tab::kOrganizeTOC;
    ContentsState& contents = main.contents;
    Select("b");
    DragOver("b", "c");
    main.window.EditFrame.Text = std::string("f");
    contents.Tree1.Remove(Node("a"));
    EXPECT_EQ(contents.toc_item_node, nullptr);
    EXPECT_EQ(contents.PubOverNode, nullptr);
    EXPECT_EQ(contents.drag_node, nullptr);
    main.topics.ListTopics.Add("kept");
    contents.drag_list_item = &main.topics.ListTopics.Add("gone");
    main.topics.ListTopics.Add("zzz");
    main.topics.ListTopics.Remove(1);
    EXPECT_EQ(contents.drag_list_item, nullptr);
    contents.Tree1.Clear();
    EXPECT_EQ(contents.Tree1.DropHighlight(), nullptr);
}

TEST_F(ContentsDrag, ADropOnTheEditorLeavesALink) {
    folder.Write("p/a.htm", "<body>x</body>");
    Start("html", "ab");
    main.editor.main_path = folder.Windows("p/a.htm");
    surface.LoadDocument(main.editor.main_path);
    Node("a").Tag = PackNodeData(folder.Windows("p/sub/b.htm") + "#m", "", "");
    Node("b").Tag = "";
    for (const auto& [from, text] : {std::pair{"a", " <a href=sub/b.htm#m >a</a> "}, {"b", "b"}}) {
        DragOver(from, from);
        EXPECT_EQ(main.contents.tree_drag_text, text);
        EXPECT_TRUE(TakeDropOnSurface(main));
        Tree1_OLECompleteDrag(main);
        DHTMLEdit1_DisplayChanged(main);
        DHTMLEdit1_DisplayChanged(main);
    }
    const std::string html = surface.DocumentHTML();
    EXPECT_NE(html.find("sub/b.htm#m"), std::string::npos) << html;
    EXPECT_EQ(html.find("sub/b.htm#m"), html.rfind("sub/b.htm#m")) << "once";
}

}  // namespace
}  // namespace quorrel::test
