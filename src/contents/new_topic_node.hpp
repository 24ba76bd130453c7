// The place of a new topic in the contents.
#pragma once

#include <string_view>

#include "platform/controls/tree_view.hpp"

namespace quorrel {

struct ContentsState;

/// The picture of the page in a book that is made together with its topic.
inline constexpr int kNewTopicImage = 4;

/// Adds a node for the topic and selects it: a page, or with `create_book_with_topic` a book with
/// a page "New Topic" in it. It becomes the next sibling of the selected node; of a book that has
/// children, it goes behind the last one of them that has none itself.
TreeNode& AddTopicNode(ContentsState& contents, std::string_view title, std::string_view path,
                       std::string_view alias);

}  // namespace quorrel
