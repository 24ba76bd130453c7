// Runs quorrel-cli within the test, with settings of its own.
#pragma once

#include <gtest/gtest.h>

#include <cstdlib>
#include <sstream>
#include <string>
#include <vector>

#include "cli/cli.hpp"
#include "support/scratch_folder.hpp"

namespace quorrel::test {

struct Outcome {
    int code = 0;
    std::string out, err;
};

inline Outcome RunProgram(std::vector<const char*> arguments, const std::string& input = {}) {
    arguments.insert(arguments.begin(), "quorrel-cli");
    std::istringstream in(input);
    std::ostringstream out;
    std::ostringstream err;
    const int code = RunCli(static_cast<int>(arguments.size()), arguments.data(), in, out, err);
    return {code, out.str(), err.str()};
}

class Cli : public testing::Test {
  protected:
    Cli() {
#ifdef _WIN32
        _putenv_s("XDG_CONFIG_HOME", folder.Native("config").c_str());
#else
        setenv("XDG_CONFIG_HOME", folder.Native("config").c_str(), 1);
#endif
    }
    ScratchFolder folder;
};

}  // namespace quorrel::test
