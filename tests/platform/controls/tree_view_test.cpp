#include "platform/controls/tree_view.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <random>

#include "platform/controls/control.hpp"
#include "support/error_number.hpp"

namespace quorrel {
namespace {

using enum NodeRelation;

/// The tree as text, "a(b,c(d)),e", with the links of each node checked on the way.
std::string Shape(const std::vector<TreeNode*>& level) {
    std::string text;
    for (std::size_t i = 0; i < level.size(); ++i) {
        const TreeNode& node = *level[i];
        EXPECT_EQ(node.Row(), static_cast<int>(i)) << node.Text;
        EXPECT_EQ(node.Previous(), i == 0 ? nullptr : level[i - 1]) << node.Text;
        EXPECT_EQ(node.Next(), i + 1 == level.size() ? nullptr : level[i + 1]) << node.Text;
        EXPECT_EQ(node.LastSibling(), level.back()) << node.Text;
        std::vector<TreeNode*> children;
        for (int row = 0; row < node.Children(); ++row) {
            children.push_back(node.ChildAt(row));
            EXPECT_EQ(children.back()->Parent(), &node);
        }
        EXPECT_EQ(node.Child(), children.empty() ? nullptr : children.front());
        text += (i == 0 ? "" : ",") + node.Text;
        if (!children.empty()) text += "(" + Shape(children) + ")";
    }
    return text;
}

/// The captions in flat order.
std::string Flat(const TreeView& tree) {
    std::string text;
    for (int i = 1; i <= tree.Count(); ++i) {
        text += tree.At(i).Text;
        EXPECT_EQ(tree.IndexOf(tree.At(i)), i);
    }
    return text;
}

TEST(TreeView, NodesStandAsTheirRelationSays) {
    TreeView tree;
    TreeNode& b = tree.Add(nullptr, kChild, "b", 1, 2);
    TreeNode& d = tree.Add(nullptr, kNext, "d", 0, 0);
    tree.Add(&b, kNext, "c", 0, 0);
    tree.Add(&b, kPrevious, "a", 0, 0);
    TreeNode& x = tree.Add(&d, kChild, "x", 0, 0);
    tree.Add(&d, kChild, "z", 0, 0);
    tree.Add(&x, kNext, "y", 0, 0);
    tree.Add(&x, kPrevious, "w", 0, 0);
    EXPECT_EQ(Shape(tree.Roots()), "a,b,c,d(w,x,y,z)");
    EXPECT_EQ(Flat(tree), "bdcaxzyw");
    EXPECT_EQ(b.SelectedImage, 2);
}

TEST(TreeView, RefusesCyclesAndNumbersOutsideOfIt) {
    TreeView tree;
    TreeNode& a = tree.Add(nullptr, kChild, "a", 0, 0);
    TreeNode& b = tree.Add(&a, kChild, "b", 0, 0);
    EXPECT_EQ(test::NumberOf([&] { tree.SetParent(a, &b); }), 5);
    for (const int number : {0, 3}) {
        EXPECT_EQ(test::NumberOf([&] { (void)tree.At(number); }), 35600);
    }
    tree.Select(&b);
    tree.Clear();
    EXPECT_EQ(tree.Count(), 0);
    EXPECT_EQ(tree.SelectedItem(), nullptr);
}

TEST(TreeView, RevealedNodeHasExpandedAncestors) {
    TreeView tree;
    TreeNode& a = tree.Add(nullptr, kChild, "a", 0, 0);
    TreeNode& b = tree.Add(&a, kChild, "b", 0, 0);
    TreeNode& c = tree.Add(&b, kChild, "c", 0, 0);
    const TreeNode* shown = nullptr;
    tree.reveal.Connect([&](TreeNode& node) {
        shown = &node;
        EXPECT_TRUE(a.Expanded && b.Expanded);
    });
    tree.EnsureVisible(c);
    EXPECT_EQ(shown, &c);
    EXPECT_FALSE(c.Expanded);
}

TEST(TreeView, SignalsTellWhatChanged) {
    TreeView tree;
    int nodes = 0, own = 0;
    tree.nodes_changed.Connect([&] { ++nodes; });
    tree.changed.Connect([&] { ++own; });
    TreeNode& a = tree.Add(nullptr, kChild, "a", 0, 0);
    TreeNode& b = tree.Add(nullptr, kChild, "b", 0, 0);
    tree.SetParent(b, &a);
    tree.Select(&a);
    tree.Select(&a);
    EXPECT_EQ(own, 1);
    tree.Remove(b);
    tree.Clear();
    EXPECT_EQ(nodes, 5);
}

bool IsWithin(const TreeNode* node, const TreeNode& top) {
    while (node != nullptr && node != &top) node = node->Parent();
    return node != nullptr;
}

class TreeViewOperations : public testing::TestWithParam<unsigned> {};

TEST_P(TreeViewOperations, KeepLinksNumbersAndSelection) {
    std::mt19937 random(GetParam());
    TreeView tree;
    std::vector<TreeNode*> flat;
    for (int step = 0; step < 400; ++step) {
        const std::size_t action = random() % 100;
        TreeNode* const at = flat.empty() ? nullptr : flat[random() % flat.size()];
        const std::size_t to = random() % (flat.size() + 1);
        TreeNode* const relative = to == flat.size() ? nullptr : flat[to];
        if (at == nullptr || action < 60) {
            const auto relation = static_cast<NodeRelation>(2 + random() % 3);
            TreeNode& node = tree.Add(relative, relation, std::to_string(step) + " ", 0, 0);
            flat.push_back(&node);
            if (relative != nullptr) {
                ASSERT_EQ(node.Parent(), relation == kChild ? relative : relative->Parent());
                ASSERT_TRUE(relation != kNext || relative->Next() == &node);
                ASSERT_TRUE(relation != kPrevious || relative->Previous() == &node);
            }
        } else if (action < 75) {
            tree.Select(relative);
            TreeNode* const selected = IsWithin(relative, *at) ? nullptr : relative;
            std::erase_if(flat, [&](const TreeNode* node) { return IsWithin(node, *at); });
            tree.Remove(*at);
            ASSERT_EQ(tree.SelectedItem(), selected);
        } else if (action < 80) {
            std::erase_if(flat,
                          [&](const TreeNode* node) { return node != at && IsWithin(node, *at); });
            tree.RemoveChildren(*at);
            ASSERT_EQ(at->Child(), nullptr);
        } else if (action < 85 && relative != nullptr && !IsWithin(relative, *at)) {
            TreeNode* const first = at->Child();
            const int wanted = relative->Children() + at->Children();
            tree.MoveChildren(*at, *relative);
            ASSERT_EQ(relative->Children(), wanted);
            ASSERT_TRUE(first == nullptr || first->Parent() == relative);
        } else if (IsWithin(relative, *at)) {
            EXPECT_THROW(tree.SetParent(*at, relative), RuntimeError);
        } else {
            tree.SetParent(*at, relative);
            ASSERT_EQ(at->Parent(), relative);
            ASSERT_EQ(at->Next(), nullptr);
        }
        std::string names;
        for (const TreeNode* node : flat) names += node->Text;
        ASSERT_EQ(Flat(tree), names) << "step " << step;
        const std::string shape = Shape(tree.Roots());
        ASSERT_EQ(std::count(shape.begin(), shape.end(), ' '), tree.Count()) << "step " << step;
    }
}

INSTANTIATE_TEST_SUITE_P(Seeds, TreeViewOperations, testing::Range(1U, 7U));

TEST(Property, OnlyAnotherValueIsTold) {
    TextBox box;
    int told = 0;
    box.changed.Connect([&] { ++told; });
    box.Text = "a";
    box.Text = "a";
    box.Enabled = true;
    TextBox other;
    other.Text = "b";
    box.Text = other.Text;
    EXPECT_EQ(told, 2);
    EXPECT_EQ(box.Text(), "b");
}

TEST(Signal, ListenerConnectedDuringEmitIsCalledFromTheNextTimeOn) {
    Signal<int> signal;
    std::vector<int> calls;
    signal.Connect([&](int value) {
        calls.push_back(value);
        // Enough of them to move the list in memory.
        for (int i = 0; i < 10; ++i) {
            signal.Connect([&calls, value, i](int later) { calls.push_back(later + value + i); });
        }
        calls.push_back(value + 1);
    });
    signal.Connect([&](int value) { calls.push_back(value + 2); });
    signal.Emit(100);
    EXPECT_EQ(calls, (std::vector<int>{100, 101, 102}));
    signal.Emit(1000);
    EXPECT_EQ(calls.size(), 3U + 3U + 10U);
}

}  // namespace
}  // namespace quorrel
