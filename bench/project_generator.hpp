// Makes HTML Help projects of any size for measurements.
#pragma once

#include <cstdint>
#include <filesystem>
#include <string>

#include "contents/contents_state.hpp"
#include "platform/controls/tree_view.hpp"
#include "project/project_state.hpp"

namespace quorrel::bench {

/// A project in memory, as the program would have it. Its paths lie in a folder of their own,
/// which the files that are written of it do not name.
struct GeneratedProject {
    ProjectState project;
    ListView ListTopics{8};  // in the order of the files on disk
    TreeView Tree1;
    KeywordState keywords;
};

/// Topics in folders of a hundred, ten such folders in a folder above; a contents node a topic,
/// in books of twenty pages, three levels deep; two keywords a topic, every fourth with two
/// sub-keys; a keyword leads to one to three topics.
void Generate(GeneratedProject& generated, int topics, std::uint64_t seed);

/// The texts of the project's own files, by the program's writers.
struct ProjectTexts {
    std::string hhp, hhc, hhk, ali, h;
};
[[nodiscard]] ProjectTexts TextsOf(const GeneratedProject& generated);

/// Writes the whole project, topics and all, and gives the path of its .hhp.
std::filesystem::path WriteProject(const std::filesystem::path& folder, int topics,
                                   std::uint64_t seed);

}  // namespace quorrel::bench
