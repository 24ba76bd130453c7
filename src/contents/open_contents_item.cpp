#include "contents/open_contents_item.hpp"

#include "app/main_form.hpp"
#include "contents/node_data.hpp"
#include "platform/text.hpp"
#include "project/form_new_topic.hpp"
#include "project/open_topic.hpp"

namespace quorrel {

/// A new topic for the selected node, which leads nowhere.
static void OfferTopic(MainForm& main) {
    main.editor.new_topic_template = "False";
    main.contents.create_from_toc_selected = true;
    ShowNewTopic(main);
}

void OpenTOCItem(MainForm& main) {
    const TreeNode* node = main.contents.Tree1.SelectedItem();
    if (node == nullptr) return;
    const NodeData data = UnpackNodeData(node->Tag);
    main.contents.create_from_toc_selected = false;
    if (data.location.empty()) {
        if (node->Children() == 0) OfferTopic(main);
        return;
    }
    OpenTopic(main, data.location);
}

void Tree1_NodeClick(MainForm& main) {
    TreeView& tree = main.contents.Tree1;
    TreeNode* node = tree.SelectedItem();
    if (node == nullptr) return;
    if (node->Image != node_image::kPage) {
        node->Image = node->Expanded ? node_image::kOpenBook : node_image::kClosedBook;
        node->SelectedImage = node->Image;
        tree.node_changed.Emit(*node);
    }
    OpenTOCItem(main);
}

TreeNode& FirstNodeWithLocation(TreeView& tree) {
    constexpr std::size_t kShortestLocation = 2;
    for (int i = 1;; ++i) {
        TreeNode& node = tree.At(i);
        if (CountCharacters(UnpackNodeData(node.Tag).location) >= kShortestLocation) return node;
    }
}

void OpenFirstContentsItem(MainForm& main) {
    TreeView& tree = main.contents.Tree1;
    TreeNode& node = FirstNodeWithLocation(tree);
    tree.Select(&node);
    tree.EnsureVisible(node);
    Tree1_NodeClick(main);
}

}  // namespace quorrel
