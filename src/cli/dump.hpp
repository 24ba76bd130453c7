// A project as JSON.
#pragma once

#include <iosfwd>

namespace quorrel {

struct MainForm;

/// Writes the open project as one JSON object in UTF-8, with a line end behind it.
void DumpProject(const MainForm& main, std::ostream& out);

}  // namespace quorrel
