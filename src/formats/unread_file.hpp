// A file that a save makes under the project's name and that the project does not name.
#pragma once

#include <string>
#include <string_view>

namespace quorrel {

struct MainForm;

/// Notes that all of `file`, if there is such a file, is lost by a save: its lines that have
/// `mark`, in upper case, in them, or all but blank ones.
void NoteUnreadFile(MainForm& main, const std::string& file, std::string_view mark);

}  // namespace quorrel
