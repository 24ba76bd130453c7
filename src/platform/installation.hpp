// Where the program lies, and what an installation puts beside it.
#pragma once

#include <string>
#include <string_view>

#include "platform/file_system.hpp"

namespace quorrel {

/// The folder of the running program, a native path; empty where the system does not tell.
[[nodiscard]] std::string NativeProgramFolder();

/// The folder with the topic templates that belong to a program in `program_folder`, with a
/// backslash at its end: "share" beside it, or "share\quorrel" beside a folder "bin". Empty where
/// there is none.
[[nodiscard]] std::string InstallationOf(FileSystem& files, std::string_view program_folder);

}  // namespace quorrel
