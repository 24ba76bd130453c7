#include "platform/controls/tree_view.hpp"

#include <algorithm>

#include "platform/failure.hpp"

namespace quorrel {

const std::vector<TreeNode*>& TreeNode::Siblings() const {
    return parent_ == nullptr ? tree_->roots_ : parent_->children_;
}

int TreeNode::Row() const {
    const auto& siblings = Siblings();
    const auto known = static_cast<std::size_t>(row_);
    if (known < siblings.size() && siblings[known] == this) return row_;
    for (std::size_t i = 0; i < siblings.size(); ++i) siblings[i]->row_ = static_cast<int>(i);
    return row_;
}

TreeNode* TreeNode::Next() const {
    const auto& siblings = Siblings();
    const auto next = static_cast<std::size_t>(Row()) + 1;
    return next < siblings.size() ? siblings[next] : nullptr;
}

TreeNode* TreeNode::Previous() const {
    return Row() == 0 ? nullptr : Siblings()[static_cast<std::size_t>(row_) - 1];
}

TreeNode* TreeNode::LastSibling() const {
    return Siblings().back();
}

std::string TreeNode::FullPath() const {
    std::vector<const TreeNode*> way;
    for (const TreeNode* node = this; node != nullptr; node = node->parent_) way.push_back(node);
    std::string path;
    for (auto node = way.rbegin(); node != way.rend(); ++node) {
        if (!path.empty() || node != way.rbegin()) path += '\\';
        path += (*node)->Text;
    }
    return path;
}

bool TreeChange::IsIdle(const TreeView& tree) const {
    if (kind != Kind::kMove) return false;
    if (count == 0) return true;
    const int siblings =
        parent == nullptr ? static_cast<int>(tree.Roots().size()) : parent->Children();
    return parent == new_parent && row + count == siblings;
}

TreeView::~TreeView() = default;

void TreeView::Begin(const TreeChange& change) {
    changing.Emit(change);
}

void TreeView::End(const TreeChange& change) {
    has_changed.Emit(change);
    nodes_changed.Emit();
}

TreeNode& TreeView::Add(TreeNode* relative, NodeRelation relation, std::string text, int image,
                        int selected_image) {
    const bool as_child = relative == nullptr || relation == NodeRelation::kChild;
    TreeNode* parent = as_child ? relative : relative->parent_;
    std::vector<TreeNode*>& siblings = ChildrenOf(parent);
    std::size_t row = siblings.size();
    if (!as_child) {
        row = static_cast<std::size_t>(relative->Row()) + (relation == NodeRelation::kNext ? 1 : 0);
    }
    const TreeChange change{TreeChange::Kind::kInsert, parent, static_cast<int>(row)};
    Begin(change);
    nodes_.push_back(std::unique_ptr<TreeNode>(new TreeNode));
    TreeNode& node = *nodes_.back();
    node.tree_ = this;
    node.index_ = Count();
    node.Text = std::move(text);
    node.Image = image;
    node.SelectedImage = selected_image;
    node.parent_ = parent;
    siblings.insert(siblings.begin() + static_cast<std::ptrdiff_t>(row), &node);
    node.row_ = static_cast<int>(row);
    End(change);
    return node;
}

TreeNode& TreeView::At(int index) const {
    if (index < 1 || index > Count()) throw RuntimeError(run_time_error::kIndexOutOfBounds);
    return *nodes_[static_cast<std::size_t>(index - 1)];
}

int TreeView::IndexOf(const TreeNode& node) const {
    return node.index_;
}

void TreeView::Detach(TreeNode& node) {
    std::vector<TreeNode*>& siblings = ChildrenOf(node.parent_);
    siblings.erase(siblings.begin() + node.Row());
}

void TreeView::Remove(TreeNode& node) {
    RemoveRows(node.parent_, node.Row(), 1);
}

void TreeView::RemoveChildren(TreeNode& node) {
    if (node.Children() > 0) RemoveRows(&node, 0, node.Children());
}

void TreeView::RemoveRows(TreeNode* parent, int row, int count) {
    const TreeChange change{TreeChange::Kind::kRemove, parent, row, count};
    Begin(change);
    std::vector<TreeNode*>& siblings = ChildrenOf(parent);
    const auto first = siblings.begin() + row;
    std::vector<TreeNode*> doomed(first, first + count);
    siblings.erase(first, first + count);
    for (std::size_t i = 0; i < doomed.size(); ++i) {
        const TreeNode& gone = *doomed[i];
        doomed.insert(doomed.end(), gone.children_.begin(), gone.children_.end());
    }
    for (TreeNode* gone : doomed) {
        gone->index_ = 0;
    }
    const bool was_selected = selected_ != nullptr && selected_->index_ == 0;
    if (was_selected) selected_ = nullptr;
    if (drop_highlight_ != nullptr && drop_highlight_->index_ == 0) drop_highlight_ = nullptr;
    std::erase_if(nodes_, [](const auto& candidate) { return candidate->index_ == 0; });
    for (std::size_t i = 0; i < nodes_.size(); ++i) nodes_[i]->index_ = static_cast<int>(i) + 1;
    End(change);
    if (was_selected) changed.Emit();
}

void TreeView::Clear() {
    Select(nullptr);
    drop_highlight_ = nullptr;
    constexpr TreeChange kChange{TreeChange::Kind::kClear};
    Begin(kChange);
    roots_.clear();
    nodes_.clear();
    End(kChange);
}

void TreeView::SetParent(TreeNode& node, TreeNode* parent) {
    for (const TreeNode* above = parent; above != nullptr; above = above->parent_) {
        if (above == &node) throw RuntimeError(run_time_error::kInvalidArgument);
    }
    const TreeChange change{TreeChange::Kind::kMove, node.parent_, node.Row(), 1, parent};
    if (change.IsIdle(*this)) return;
    Begin(change);
    Detach(node);
    node.parent_ = parent;
    std::vector<TreeNode*>& siblings = ChildrenOf(parent);
    siblings.push_back(&node);
    node.row_ = static_cast<int>(siblings.size()) - 1;
    End(change);
}

void TreeView::MoveChildren(TreeNode& from, TreeNode& to) {
    if (&from == &to) return;
    for (const TreeNode* above = &to; above != nullptr; above = above->parent_) {
        if (above == &from) throw RuntimeError(run_time_error::kInvalidArgument);
    }
    const TreeChange change{TreeChange::Kind::kMove, &from, 0, from.Children(), &to};
    if (change.IsIdle(*this)) return;
    Begin(change);
    const std::size_t first = to.children_.size();
    to.children_.insert(to.children_.end(), from.children_.begin(), from.children_.end());
    from.children_.clear();
    for (std::size_t i = first; i < to.children_.size(); ++i) {
        to.children_[i]->parent_ = &to;
        to.children_[i]->row_ = static_cast<int>(i);
    }
    End(change);
}

void TreeView::Select(TreeNode* node) {
    if (node == selected_) return;
    selected_ = node;
    changed.Emit();
}

void TreeView::EnsureVisible(TreeNode& node) {
    for (TreeNode* above = node.parent_; above != nullptr; above = above->parent_) {
        above->Expanded = true;
    }
    reveal.Emit(node);
}

}  // namespace quorrel
