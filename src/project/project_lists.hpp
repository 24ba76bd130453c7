// Contents, index, outline and topics as texts of the program's own, with nothing left out.
#pragma once

#include <string>
#include <string_view>
#include <vector>

namespace quorrel {

struct MainForm;

struct ProjectList {
    std::string_view name;     // in records
    std::string_view caption;  // for the user
    std::string (*text)(const MainForm& main);
    /// Makes the list what the text says, and marks it to be saved.
    void (*take)(MainForm& main, std::string_view text);
};

/// All of them, in the order in which they are to be taken.
[[nodiscard]] const std::vector<ProjectList>& ProjectLists();

}  // namespace quorrel
