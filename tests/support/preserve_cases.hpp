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

/// The engine's form of a page without anything in its head.
[[nodiscard]] std::string Page(const std::string& body);

[[nodiscard]] std::vector<PreserveCase> PreserveCases();

}  // namespace quorrel::test
