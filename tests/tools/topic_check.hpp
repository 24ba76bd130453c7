// Edits a topic in the real engine and looks at what becomes of its source.
#pragma once

#include <filesystem>
#include <string>
#include <string_view>
#include <vector>

#include "tools/engine_page.hpp"

namespace quorrel::test {

/// The names of the edits that CheckTopic knows, "word" first.
[[nodiscard]] const std::vector<std::string>& EditNames();

struct TopicOutcome {
    enum class Result { kOk, kFailed, kSkipped };
    Result result = Result::kOk;
    std::string reason;
    // Lines of the source that are gone, and lines that are new; a changed one is both.
    std::size_t removed_lines = 0;
    std::size_t added_lines = 0;
    std::string original;
    std::string base;
    std::string edited;
    std::string preserved;
};

/// The topic in the file is loaded as the editor does it, with its OBJECT tags masked, edited at
/// a word (`place` of the way through its text, from 0 to 1), and its source put together again.
/// Fails if the engine reads the result as anything else than the edited document, or if more lines
/// changed than need to.
[[nodiscard]] TopicOutcome CheckTopic(EnginePage& page, const std::filesystem::path& file,
                                      std::string_view edit, double place = 0.5);

/// The HTML files in a folder and below, in order; a file itself.
[[nodiscard]] std::vector<std::filesystem::path> TopicsIn(const std::filesystem::path& place);

}  // namespace quorrel::test
