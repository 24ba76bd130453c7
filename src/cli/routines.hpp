// Single routines of the program, run on lines of JSON.
#pragma once

#include <iosfwd>

namespace quorrel {

/// Reads lines {"text","start","attribute","value","mode"}, `start` a 1-based character position,
/// and writes a line {"result"} for each. Gives an exit code; a line that is no such object is
/// told on `err` and ends the run.
int RunTagValueLines(std::istream& in, std::ostream& out, std::ostream& err);

/// Reads lines {"fn","args","proj_path","main_path"} for the path and colour routines likewise.
int RunPathLines(std::istream& in, std::ostream& out, std::ostream& err);

}  // namespace quorrel
