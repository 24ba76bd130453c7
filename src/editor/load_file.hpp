// Bringing a topic onto the surface.
#pragma once

namespace quorrel {

struct MainForm;

/// Opens `new_main_path`: its working copy if the topic's row says that there is one, or if the
/// topic itself is missing. A file that cannot be loaded leaves the surface empty.
void LoadFile(MainForm& main);

/// Finds the open topic's row, selects it in the topic table and shows its title and path in the
/// status bar.
void SyncTopicSelection(MainForm& main);

}  // namespace quorrel
