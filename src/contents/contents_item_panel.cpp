#include "contents/contents_item_panel.hpp"

#include <initializer_list>
#include <string>
#include <string_view>

#include "app/main_form.hpp"
#include "contents/contents_tree.hpp"
#include "contents/node_data.hpp"
#include "platform/controls/follow.hpp"
#include "platform/meanwhile.hpp"
#include "platform/text.hpp"
#include "project/paths.hpp"

namespace quorrel {
namespace {

constexpr const char* kRemoteIcon = "13";

/// Takes what stands before the next comma off `rest`. Without one the field is empty.
std::string TakeField(std::string_view& rest) {
    const std::size_t comma = rest.find(',');
    if (comma == npos) {
        rest = {};
        return {};
    }
    std::string field(rest.substr(0, comma));
    rest.remove_prefix(comma + 1);
    return field;
}

void ShowLocation(MainForm& main, std::string_view location) {
    const std::size_t mark = location.rfind('#');
    const std::string_view bookmark = mark == npos ? "" : location.substr(mark + 1);
    main.window.ComboBookmark.Text = std::string(bookmark);
    main.window.EditTOCLocation.Text =
        RelativeLocation(location.substr(0, mark), main.project.proj);
}

/// "Default" stands first and is no name of a picture.
void ShowIconName(ComboBox& icons, std::string_view name) {
    if (name.empty()) return;
    for (int i = 1; i < icons.ListCount(); ++i) {
        if (icons.List()[static_cast<std::size_t>(i)] != name) continue;
        icons.ListIndex = i;
        return;
    }
}

void ShowExtra(MainForm& main, std::string_view extra) {
    WindowControls& window = main.window;
    if (window.ComboIcon.ListCount() > 0) window.ComboIcon.ListIndex = 0;
    window.CheckMarkNew.Value = false;
    window.EditFrame.Text = std::string();
    window.EditWindow.Text = std::string();
    window.EditIcon.Text = std::string("0");
    if (main.settings.is_javahelp_edition) return ShowIconName(window.ComboIcon, extra);
    if (extra.empty()) return;
    const std::string icon = TakeField(extra);
    window.EditIcon.Text = icon == "0" ? std::string() : icon;
    window.EditFrame.Text = TakeField(extra);
    window.EditWindow.Text = TakeField(extra);
    window.CheckMarkNew.Value = TakeField(extra) == "1";
}

std::string TypedLocation(const MainForm& main) {
    std::string location = main.window.EditTOCLocation.Text;
    const std::string& bookmark = main.window.ComboBookmark.Text;
    if (!bookmark.empty()) location.append("#").append(bookmark);
    return FullLocation(location, main.project.proj);
}

std::string TypedExtra(const MainForm& main) {
    const WindowControls& window = main.window;
    if (main.settings.is_javahelp_edition) {
        return window.ComboIcon.ListIndex >= 1 ? window.ComboIcon.Text() : std::string();
    }
    std::string extra;
    for (const std::string& field :
         {window.EditIcon.Text(), window.EditFrame.Text(), window.EditWindow.Text(),
          std::string(window.CheckMarkNew.Value ? "1" : "")}) {
        extra.append(field).append(",");
    }
    return extra;
}

/// The map id of a bookmark that has none yet. It is named after the open topic, wherever the
/// bookmark is.
std::string AddBookmarkAlias(MainForm& main, const std::string& location) {
    TopicTables& topics = main.topics;
    if (topics.current_topic_index < 1) return {};
    const ListRow& topic = topics.ListTopics.At(topics.current_topic_index);
    std::string name = topic.SubItems(topic_cell::kMapId);
    name.append("_").append(main.window.ComboBookmark.Text());
    topics.ListAliases.Add(name).SetSubItem(alias_cell::kPath, location);
    return name;
}

std::string TargetOf(MainForm& main, const std::string& location) {
    if (main.project.help_mode != 1) return {};
    const TopicTables& topics = main.topics;
    if (main.window.ComboBookmark.Text().empty()) {
        const ListRow* row = topics.ListTopics.LastWith(topic_cell::kFullPath, location);
        return row == nullptr ? std::string() : row->SubItems(topic_cell::kMapId);
    }
    if (const ListRow* row = topics.ListAliases.LastWith(alias_cell::kPath, location)) {
        return row->Text();
    }
    return AddBookmarkAlias(main, location);
}

void AddFirstPage(TreeView& tree, TreeNode& book) {
    tree.EnsureVisible(
        tree.Add(&book, NodeRelation::kChild, "New Topic", node_image::kPage, node_image::kPage));
    book.Image = node_image::kOpenBook;
    book.SelectedImage = node_image::kOpenBook;
    tree.node_changed.Emit(book);
}

void MoveChildrenUp(TreeView& tree, TreeNode& book) {
    if (book.Children() == 0) return;
    TreeNode* behind = &book;
    for (TreeNode* child = book.Child(); child != nullptr; child = child->Next()) {
        behind = &CopyNode(tree, *child, *behind, NodeRelation::kNext);
    }
    tree.RemoveChildren(book);
    if (book.Image < node_image::kPage) book.Image = node_image::kPage;
    if (book.SelectedImage < node_image::kPage) book.SelectedImage = node_image::kPage;
    tree.node_changed.Emit(book);
}

}  // namespace

void LoadTOCProperties(MainForm& main) {
    ContentsState& contents = main.contents;
    TreeNode* node = contents.Tree1.SelectedItem();
    if (node == nullptr) return;
    CommitContentsItem(main);
    {
        const Meanwhile loading(contents.toc_loading, true);
        contents.toc_item_node = node;
        main.window.EditTOCText.Text = node->Text;
        const NodeData data = UnpackNodeData(node->Tag);
        ShowLocation(main, data.location);
        main.window.CheckTOCIsBook.Value = node->Children() > 0;
        ShowExtra(main, data.extra);
    }
    contents.toc_item_changed.Emit();
}

void SaveTOCProperties(MainForm& main) {
    if (main.project.proj.empty()) return;
    ContentsState& contents = main.contents;
    contents.toc_dirty = true;
    const std::string location = TypedLocation(main);
    const std::string target = TargetOf(main, location);
    if (contents.toc_item_node != nullptr) {
        contents.toc_item_node->Tag = PackNodeData(location, target, TypedExtra(main));
        contents.Tree1.node_changed.Emit(*contents.toc_item_node);
    }
    contents.toc_item_dirty = false;
    main.project.project_dirty = true;
}

void CommitContentsItem(MainForm& main) {
    if (main.contents.toc_item_dirty) SaveTOCProperties(main);
}

void EditTOCText_Change(MainForm& main) {
    TreeView& tree = main.contents.Tree1;
    TreeNode* node = tree.SelectedItem();
    if (main.contents.toc_loading || node == nullptr) return;
    node->Text = main.window.EditTOCText.Text();
    tree.node_changed.Emit(*node);
    SetContentsDirty(main);
}

void EditTOCLocation_Change(MainForm& main) {
    if (main.contents.toc_loading) return;
    main.contents.toc_item_dirty = true;
    WindowControls& window = main.window;
    const std::string& location = window.EditTOCLocation.Text;
    const bool is_remote = Contains(location, "http://") || Contains(location, "https://");
    if (is_remote && window.EditIcon.Text().empty())
        window.EditIcon.Text = std::string(kRemoteIcon);
}

void CheckTOCIsBook_Click(MainForm& main) {
    TreeView& tree = main.contents.Tree1;
    TreeNode* node = tree.SelectedItem();
    if (main.contents.toc_loading || node == nullptr) return;
    SetContentsDirty(main);
    if (main.window.CheckTOCIsBook.Value) {
        AddFirstPage(tree, *node);
    } else {
        MoveChildrenUp(tree, *node);
    }
}

void ConnectContentsItemPanel(MainForm& main) {
    WindowControls& window = main.window;
    ContentsState& contents = main.contents;
    const auto mark = [&contents] {
        if (!contents.toc_loading) contents.toc_item_dirty = true;
    };
    FollowProperty(window.EditTOCText, window.EditTOCText.Text,
                   [&main] { EditTOCText_Change(main); });
    FollowProperty(window.EditTOCLocation, window.EditTOCLocation.Text,
                   [&main] { EditTOCLocation_Change(main); });
    for (TextBox* edit : std::initializer_list<TextBox*>{&window.ComboBookmark, &window.EditIcon,
                                                         &window.EditFrame, &window.EditWindow}) {
        FollowProperty(*edit, edit->Text, mark);
    }
    FollowProperty(window.CheckMarkNew, window.CheckMarkNew.Value, mark);
    // A list that is emptied to be filled anew is no choice of the user.
    FollowProperty(window.ComboIcon, window.ComboIcon.ListIndex, [&window, mark] {
        if (window.ComboIcon.ListIndex >= 0) mark();
    });
    FollowProperty(window.CheckTOCIsBook, window.CheckTOCIsBook.Value,
                   [&main] { CheckTOCIsBook_Click(main); });
}

}  // namespace quorrel
