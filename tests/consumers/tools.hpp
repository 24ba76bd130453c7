// The programs that take what this one writes, where they are installed.
#pragma once

#include <gtest/gtest.h>

#include <array>
#include <cstdio>
#include <filesystem>
#include <sstream>
#include <string>

#include "cli/cli.hpp"
#include "support/scratch_folder.hpp"

namespace quorrel::test {

struct ToolRun {
    int status = 0;
    std::string output;  // standard error is part of it
};

/// Runs a command of the shell within `folder`.
inline ToolRun RunTool(const std::string& folder, const std::string& command) {
    FILE* pipe = popen(("cd '" + folder + "' && { " + command + "; } 2>&1").c_str(), "r");
    if (pipe == nullptr) return {-1, "no shell"};
    ToolRun run;
    std::array<char, 4096> buffer{};
    while (const std::size_t count = std::fread(buffer.data(), 1, buffer.size(), pipe)) {
        run.output.append(buffer.data(), count);
    }
    run.status = pclose(pipe);
    return run;
}

inline bool HasTool(const std::string& name) {
    return RunTool("/", "command -v " + name).status == 0;
}

#define SKIP_WITHOUT(tool, package) \
    if (!HasTool(tool)) GTEST_SKIP() << tool << " is not installed (Debian package " package ")"

/// Copies one of the sample projects, "htmlhelp" or "javahelp", to the folder "p".
inline void CopySample(const ScratchFolder& folder, const std::string& family) {
    std::filesystem::copy(std::string(QUORREL_SAMPLES_FOLDER) + "/" + family, folder.Native("p"),
                          std::filesystem::copy_options::recursive);
}

/// Runs quorrel-cli; `project` is below the scratch folder.
inline void RunCommand(const ScratchFolder& folder, std::vector<const char*> arguments,
                       const std::string& project) {
    setenv("XDG_CONFIG_HOME", folder.Native("config").c_str(), 1);
    const std::string path = folder.Native(project);
    arguments.insert(arguments.begin(), "quorrel-cli");
    arguments.push_back(path.c_str());
    std::istringstream in;
    std::ostringstream out, err;
    const int code = RunCli(static_cast<int>(arguments.size()), arguments.data(), in, out, err);
    ASSERT_EQ(code, 0) << err.str();
}

}  // namespace quorrel::test
