// Drags of the project's items: nodes of the contents, topics and keywords of the index.
#pragma once

#include <QDrag>

#include <functional>

namespace quorrel {

/// What is dragged stands in MainForm; the drag itself only tells that it is such an item.
inline constexpr const char* kProjectItemMime = "application/x-quorrel-item";

/// Lets the user drag and returns when the drag is over. A view's own can be replaced where the
/// platform has no drags.
using DragRunner = std::function<void(QDrag& drag, Qt::DropActions actions)>;

inline void RunDrag(QDrag& drag, Qt::DropActions actions) {
    drag.exec(actions, actions.testFlag(Qt::MoveAction) ? Qt::MoveAction : Qt::CopyAction);
}

}  // namespace quorrel
