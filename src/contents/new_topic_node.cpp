#include "contents/new_topic_node.hpp"

#include <string>

#include "contents/contents_state.hpp"
#include "contents/node_data.hpp"

namespace quorrel {
namespace {

/// The node that the new one goes behind; null for the end of the root level.
TreeNode* NodeBefore(const TreeView& tree) {
    TreeNode* selected = tree.SelectedItem();
    if (selected == nullptr || selected->Children() == 0) return selected;
    TreeNode* const last = selected->ChildAt(selected->Children() - 1);
    for (TreeNode* child = last; child != nullptr; child = child->Previous()) {
        if (child->Children() == 0) return child;
    }
    return last;
}

}  // namespace

TreeNode& AddTopicNode(ContentsState& contents, std::string_view title, std::string_view path,
                       std::string_view alias) {
    contents.toc_dirty = true;
    TreeView& tree = contents.Tree1;
    const int image = contents.create_book_with_topic ? node_image::kOpenBook : node_image::kPage;
    TreeNode& node =
        tree.Add(NodeBefore(tree), NodeRelation::kNext, std::string(title), image, image);
    node.Tag = PackNodeData(path, alias, {});
    if (contents.create_book_with_topic) {
        TreeNode& page =
            tree.Add(&node, NodeRelation::kChild, "New Topic", kNewTopicImage, kNewTopicImage);
        tree.EnsureVisible(page);
    }
    tree.Select(&node);
    return node;
}

}  // namespace quorrel
