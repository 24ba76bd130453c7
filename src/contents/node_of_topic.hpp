// The contents follow the open topic.
#pragma once

namespace quorrel {

struct MainForm;

/// Selects the first node, from the top down, that leads to the open topic, and opens the books
/// around it. A selected one that leads there too stays, and so does any where none does. Nothing
/// is loaded by it.
void SelectNodeOfTopic(MainForm& main);

}  // namespace quorrel
