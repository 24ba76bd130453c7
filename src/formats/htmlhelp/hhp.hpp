// The project file .hhp.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>

#include "platform/controls/list_view.hpp"
#include "platform/failure.hpp"
#include "project/project_state.hpp"

namespace quorrel {

struct MainForm;

/// Gives the title of a topic file, or nothing where it has none or cannot be read.
using TitleOfFile = std::function<std::optional<std::string>(const std::string& path)>;

/// Appends a row for each file that the [FILES] list of `text` names, with the title of the
/// ";Title=" line behind it or else of the file. Gives the first file listed, empty for none.
std::string ReadFileList(std::string_view text, std::string_view proj_path, ListView& ListTopics,
                         const TitleOfFile& title_of_file, const Trap& trap);

/// The text of a new project file, to be taken through WriteProjectText.
[[nodiscard]] std::string NewProjectText(const ProjectState& project);
/// The project file anew from its `old_text`: the options that the program owns, the list of
/// files, the map sections; every other line stays, but for blank ones. A file whose [OPTIONS]
/// is its last section gets no options written.
[[nodiscard]] std::string WriteProjectText(std::string_view old_text, const ProjectState& project,
                                           const ListView& ListTopics);

/// Reads the list of files from `proj`; rows are added to those that are there. Also the
/// command "Rebuild Keyword Indexes". An empty project_def_topic becomes the first file.
void rebuildindex_Click(MainForm& main);
/// Writes `proj`, making it if it does not exist.
void HTMLWriteProjectFile(MainForm& main);

}  // namespace quorrel
