// The tree: nodes with a caption, icon numbers and a data string.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <vector>

#include "platform/controls/control.hpp"

namespace quorrel {

class TreeView;

/// One node. It stays at its address until it is removed.
class TreeNode {
  public:
    std::string Text;
    int Image = 0;
    int SelectedImage = 0;
    std::string Tag;
    bool Expanded = false;
    bool Bold = false;

    /// Null where there is none.
    [[nodiscard]] TreeNode* Parent() const { return parent_; }
    [[nodiscard]] TreeNode* Child() const {
        return children_.empty() ? nullptr : children_.front();
    }
    [[nodiscard]] TreeNode* Next() const;
    [[nodiscard]] TreeNode* Previous() const;
    [[nodiscard]] TreeNode* LastSibling() const;
    [[nodiscard]] int Children() const { return static_cast<int>(children_.size()); }
    /// `row` from 0.
    [[nodiscard]] TreeNode* ChildAt(int row) const {
        return children_.at(static_cast<std::size_t>(row));
    }
    /// The 0-based place among the siblings.
    [[nodiscard]] int Row() const;
    /// The captions of the ancestors and the node, joined with "\".
    [[nodiscard]] std::string FullPath() const;

  private:
    friend class TreeView;
    TreeNode() = default;
    [[nodiscard]] const std::vector<TreeNode*>& Siblings() const;

    TreeView* tree_ = nullptr;
    TreeNode* parent_ = nullptr;
    std::vector<TreeNode*> children_;
    // Where the node was when its siblings were last counted: Row counts them again where another
    // one stands there now, so that a thousand nodes can be added or removed in a row.
    mutable int row_ = 0;
    int index_ = 0;  // 1-based place in the flat collection
};

/// How a new node stands to its relative; the numbers are those of the classic control.
enum class NodeRelation { kNext = 2, kPrevious = 3, kChild = 4 };

/// A step in which nodes come, go or move. The rows are 0-based places below `parent`, null being
/// the root level.
struct TreeChange {
    enum class Kind {
        kInsert,  // one node at `row`
        kRemove,  // `count` nodes from `row` on with their subtrees
        kMove,    // `count` nodes from `row` on to the end of the children of `new_parent`
        kClear,
    };
    Kind kind;
    TreeNode* parent = nullptr;
    int row = 0;
    int count = 1;
    TreeNode* new_parent = nullptr;

    /// True for a move that leaves everything as it is.
    [[nodiscard]] bool IsIdle(const TreeView& tree) const;
};

/// Beside their place in the tree the nodes have a 1-based number in the order of addition,
/// which moves up when a node before is removed.
class TreeView : public Control {
  public:
    TreeView() = default;
    ~TreeView();

    /// Before and after each step: the nodes stand where they stood, then where they stand now.
    Signal<const TreeChange&> changing;
    Signal<const TreeChange&> has_changed;
    /// Nodes came, went or moved.
    Signal<> nodes_changed;
    /// The content of one node changed; who changes it emits.
    Signal<TreeNode&> node_changed;
    /// A node is to be made visible, its ancestors being expanded already.
    Signal<TreeNode&> reveal;

    /// `relative` null adds at the end of the root level.
    TreeNode& Add(TreeNode* relative, NodeRelation relation, std::string text, int image,
                  int selected_image);
    [[nodiscard]] int Count() const { return static_cast<int>(nodes_.size()); }
    /// The node with the 1-based number. Raises 35600 where there is none.
    [[nodiscard]] TreeNode& At(int index) const;
    [[nodiscard]] int IndexOf(const TreeNode& node) const;
    /// The top-level nodes in order.
    [[nodiscard]] const std::vector<TreeNode*>& Roots() const { return roots_; }
    /// Removes the node with its subtree.
    void Remove(TreeNode& node);
    void RemoveChildren(TreeNode& node);
    void Clear();
    /// Moves the node with its subtree to the end of the children of `parent`, or to the end of
    /// the root level for null. A node does not go below itself (raises 5).
    void SetParent(TreeNode& node, TreeNode* parent);
    /// Moves all children of `from` in their order to the end of those of `to`, as SetParent of
    /// one after the other does. `to` is not below `from`.
    void MoveChildren(TreeNode& from, TreeNode& to);

    [[nodiscard]] TreeNode* SelectedItem() const { return selected_; }
    void Select(TreeNode* node);
    /// The node that shows where a drag would drop, or null.
    [[nodiscard]] TreeNode* DropHighlight() const { return drop_highlight_; }
    void SetDropHighlight(TreeNode* node) { drop_highlight_ = node; }
    /// The node at a point of the visible part, in twips from its top left corner; null for none
    /// and where nobody shows the tree.
    [[nodiscard]] TreeNode* HitTest(double x, double y) const {
        return hit_test ? hit_test(x, y) : nullptr;
    }
    /// Whoever shows the tree answers.
    std::function<TreeNode*(double x, double y)> hit_test;

    /// Expands the ancestors and asks for the node to be shown.
    void EnsureVisible(TreeNode& node);

  private:
    friend class TreeNode;
    std::vector<TreeNode*>& ChildrenOf(TreeNode* parent) {
        return parent == nullptr ? roots_ : parent->children_;
    }
    void Begin(const TreeChange& change);
    void End(const TreeChange& change);
    void RemoveRows(TreeNode* parent, int row, int count);
    void Detach(TreeNode& node);

    std::vector<std::unique_ptr<TreeNode>> nodes_;  // in the order of addition
    std::vector<TreeNode*> roots_;
    TreeNode* selected_ = nullptr;
    TreeNode* drop_highlight_ = nullptr;
};

}  // namespace quorrel
