// Drags of the project's items: nodes of the contents, topics and keywords of the index.
#pragma once

namespace quorrel {

/// What is dragged stands in MainForm; the drag itself only tells that it is such an item.
inline constexpr const char* kProjectItemMime = "application/x-quorrel-item";

}  // namespace quorrel
