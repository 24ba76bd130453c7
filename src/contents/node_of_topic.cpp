#include "contents/node_of_topic.hpp"

#include "app/main_form.hpp"
#include "contents/node_data.hpp"
#include "platform/unicode.hpp"
#include "project/paths.hpp"
#include "project/working_copy.hpp"

namespace quorrel {
namespace {

class TopicPlace {
  public:
    TopicPlace(std::string path, std::string_view folder)
        : path_(std::move(path)), relative_(LocationOf(path_, folder)) {
        // With its backslash it is a location below the folder.
        if (relative_ != path_) relative_.erase(0, 1);
    }

    [[nodiscard]] bool IsTargetOf(const TreeNode& node) const {
        std::string_view location = NodeLocation(node.Tag);
        location = location.substr(0, location.find('#'));
        return !location.empty() &&
               (EqualsIgnoringCase(location, path_) || EqualsIgnoringCase(location, relative_));
    }

  private:
    std::string path_;
    std::string relative_;
};

/// The node behind this one from the top down.
TreeNode* NextDown(TreeNode* node) {
    if (node->Child() != nullptr) return node->Child();
    for (; node != nullptr; node = node->Parent()) {
        if (TreeNode* next = node->Next()) return next;
    }
    return nullptr;
}

}  // namespace

void SelectNodeOfTopic(MainForm& main) {
    TreeView& tree = main.contents.Tree1;
    if (main.editor.main_path.empty() || tree.Roots().empty()) return;
    const TopicPlace place(TopicPath(main.editor.main_path), main.project.proj_path);
    const TreeNode* selected = tree.SelectedItem();
    if (selected != nullptr && place.IsTargetOf(*selected)) return;
    TreeNode* node = tree.Roots().front();
    while (node != nullptr && !place.IsTargetOf(*node)) node = NextDown(node);
    if (node == nullptr) return;
    tree.Select(node);
    tree.EnsureVisible(*node);
}

}  // namespace quorrel
