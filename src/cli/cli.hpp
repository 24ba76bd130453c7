// The companion program for scripts and build servers.
#pragma once

#include <iosfwd>

namespace quorrel {

namespace exit_code {
inline constexpr int kSuccess = 0;
inline constexpr int kFailure = 1;  // a project is not found or cannot be read
inline constexpr int kUsage = 2;
}  // namespace exit_code

/// Runs one command and gives the exit code of the process.
int RunCli(int argc, const char* const* argv, std::istream& in, std::ostream& out,
           std::ostream& err);

}  // namespace quorrel
