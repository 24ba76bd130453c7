// Small edited topics, for the tests of the logic and of the web engine.
#pragma once

#include <string>
#include <vector>

namespace quorrel::test {

/// A source, what the web engine makes of it before and after an edit, and the source wanted.
struct PreserveCase {
    std::string name;
    std::string original;
    std::string base;
    std::string edited;
    std::string expected;
};

[[nodiscard]] std::vector<PreserveCase> PreserveCases();

}  // namespace quorrel::test
