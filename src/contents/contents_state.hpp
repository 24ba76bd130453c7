// The table of contents and the keyword index in memory.
#pragma once

#include <string>

#include "platform/controls/list_view.hpp"
#include "platform/controls/tree_view.hpp"

namespace quorrel {

/// Icon numbers of contents nodes; anything below the page is a book.
namespace node_image {
inline constexpr int kOpenBook = 1;
inline constexpr int kClosedBook = 2;
inline constexpr int kPage = 3;
}  // namespace node_image

/// What is being dragged, as drag_source tells.
namespace drag_kind {
inline constexpr int kNone = -1;
inline constexpr int kTreeNode = 0;
inline constexpr int kTopicRow = 1;
inline constexpr int kKeywordRow = 3;
}  // namespace drag_kind

/// Stands in tree_drag_text while a keyword is dragged. It is no text to insert: whoever takes
/// the drop compares with it.
inline constexpr const char* kKeywordDragMark = "qrl_indx_6754";

/// The references to nodes and rows are cleared when what they refer to goes
/// (KeepContentsReferences).
struct ContentsState {
    TreeView Tree1;
    bool toc_dirty = false;

    // The item panel.
    bool toc_item_dirty = false;        // it holds edits that are not in the node's Tag yet
    bool toc_loading = false;           // it is being filled: changes of its fields are no edits
    TreeNode* toc_item_node = nullptr;  // the node that it shows
    Signal<> toc_item_changed;          // it shows another node, or none

    // Pointer and drag.
    TreeNode* PubOverNode = nullptr;    // under the pointer at the last mouse-down
    TreeNode* drag_node = nullptr;      // the node being dragged, until it is dropped
    ListRow* drag_list_item = nullptr;  // the row being dragged, of ListTopics or ListKeywords
    int drag_source = drag_kind::kNone;
    bool drop_landed = false;          // on the tree
    bool tree_drag_no_delete = false;  // the drop was refused: the dragged node stays
    bool is_target_refused = false;    // the pointer is inside of what is dragged
    TreeNode* drag_origin = nullptr;   // the node that goes at the end of a drag that moves it
    TreeNode* dropped_node = nullptr;  // what the last drop has made
    std::string tree_drag_text;        // what a drop leaves in the topic editor
    bool surface_took_drop = false;    // it does so with the next DisplayChanged

    // New topics on behalf of the contents.
    bool create_from_toc_selected = false;  // for the selected item, which leads nowhere yet
    bool create_book_with_topic = false;    // with a book around it

    std::string site_properties_toc;  // the site-properties object as read
};

/// Cells of a ListKeywords row beside its text, the keyword as shown.
namespace keyword_cell {
inline constexpr int IDX_TITLEPATH = 1;  // targets: title ">" path ";:" each
inline constexpr int IDX_FULLKEY = 2;    // main key, or main key + kSubKeyMark + sub-key
}  // namespace keyword_cell

/// Stands between main key and sub-key. The blanks keep the sub-keys behind their main key in
/// the sorted table.
inline constexpr const char* kSubKeyMark = "    :";

struct KeywordState {
    ListView ListKeywords{3, keyword_cell::IDX_FULLKEY};
    bool index_dirty = false;
    bool keyword_edit_mode = false;  // the next key typed replaces the selected one of ListKeys
    std::string site_properties_index;
};

}  // namespace quorrel
