// From HTML Help to JavaHelp.
#pragma once

#include <iosfwd>

namespace quorrel {

struct ProjectCall;

/// Opens the .hhp project of the call in the JavaHelp edition and saves it, which writes a
/// JavaHelp project beside it. Prints the native paths of the written files to `out`, a line each.
/// The HTML Help project and its topics stay as they are. Files of a JavaHelp project that are
/// there already are replaced only with its `force`. Gives the exit code.
int Convert(const ProjectCall& call, std::ostream& out, std::ostream& err);

}  // namespace quorrel
