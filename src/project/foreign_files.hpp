// Files of the project that are not as the program knows them: changed by others, never read, not
// readable, or no business of the project at all.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/known_files.hpp"

namespace quorrel {

struct MainForm;

/// The files that a save of the open project may write, topics aside.
[[nodiscard]] std::vector<std::string> ProjectFiles(const MainForm& main);

/// Why the file `name` should not simply be replaced, as a sentence.
[[nodiscard]] std::string SentenceOn(Doubt doubt, const std::string& name);

/// From now on the user is asked before a file is replaced about which there is a doubt.
void AskBeforeReplacing(MainForm& main);

/// Before a project just converted is saved over another one that lies there: asks once for all
/// its files. False where they are to stay.
[[nodiscard]] bool MayReplaceByConversion(MainForm& main);

/// Where the project's own file could not be read nothing is known of the others, and a project
/// converted from what was read in part is one in part: then all of them are to stay.
void KeepFilesOfUnreadOnes(MainForm& main);

/// What could not be read, and what a save will leave as it is; empty where all was read.
[[nodiscard]] std::string NotReadMessage(MainForm& main);

/// When the user comes back to the window: tells once which files another program has changed
/// meanwhile, and offers to read the project again.
void NoticeForeignChanges(MainForm& main);

}  // namespace quorrel
