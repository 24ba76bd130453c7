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

/// What a reader could not take of a file that another program has written. Such a file is kept
/// beside the first one that replaces it.
struct EntriesLeftBehind {
    int count = 0;
    int of = 0;        // entries in the file
    std::string file;  // its full path
};

struct ContentsState {
    TreeView Tree1;
    bool toc_dirty = false;
    std::string site_properties_toc;  // the site-properties object as read
    EntriesLeftBehind left_behind;
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
    std::string site_properties_index;
    EntriesLeftBehind left_behind;
};

}  // namespace quorrel
