// Drag and drop in the contents tree, from the topics into it, and from it into the editor.
#pragma once

namespace quorrel {

struct MainForm;

/// What a drag does or may do; the numbers can be added.
namespace drop_effect {
inline constexpr int kNone = 0;
inline constexpr int kCopy = 1;
inline constexpr int kMove = 2;
}  // namespace drop_effect

/// A drag of the node under the pointer begins. Gives the effects that it may have.
int Tree1_OLEStartDrag(MainForm& main);
/// The pointer is over the tree, at a point in twips. Gives the effect that a drop would have.
int Tree1_OLEDragOver(MainForm& main, double x, double y);
/// A drop on the tree: a new node before or behind the one under the pointer, never in it.
void Tree1_OLEDragDrop(MainForm& main, double x, double y);
/// The end of a drag that began in the tree. A node that was moved leaves its old place here.
/// Gives the effect that the drag has had.
int Tree1_OLECompleteDrag(MainForm& main);

/// True where a drop at that height would come before the node under the pointer.
[[nodiscard]] bool DropsBefore(const MainForm& main, double x, double y);

/// The surface has taken a drop: what is dragged goes to its caret. False for nothing to insert.
bool TakeDropOnSurface(MainForm& main);
/// Inserts what TakeDropOnSurface has announced; a keyword goes to the topic's keywords instead.
void InsertDroppedText(MainForm& main);

}  // namespace quorrel
