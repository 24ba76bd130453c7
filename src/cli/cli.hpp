// The companion program for scripts and build servers.
#pragma once

#include <iosfwd>

namespace quorrel {

namespace exit_code {
inline constexpr int kSuccess = 0;
inline constexpr int kFailure = 1;  // a project is not found or cannot be read
inline constexpr int kUsage = 2;
}  // namespace exit_code

/// Whether the process may end inside a command. Taking a large project apart row by row, when
/// all is written and the memory goes back anyway, would take a tenth of the run.
enum class AtEnd { kReturn, kExit };

/// Runs one command and gives the exit code of the process.
int RunCli(int argc, const char* const* argv, std::istream& in, std::ostream& out,
           std::ostream& err, AtEnd at_end = AtEnd::kReturn);

}  // namespace quorrel
