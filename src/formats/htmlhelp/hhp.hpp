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

/// Goes through the lines of a project file and tells which of them a save keeps as they are.
class KeptProjectLines {
  public:
    enum class Line { kBlank, kKept, kOwnedOption, kOwnedSection };
    [[nodiscard]] Line Take(std::string_view line);
    /// The line taken last has ended [OPTIONS]: before it the owned options are written.
    [[nodiscard]] bool EndedOptions() const { return ended_options_; }

  private:
    bool in_options_ = false;
    bool in_owned_ = false;  // in a section that is written anew as a whole
    bool ended_options_ = false;
};

/// The options that the program writes, a line each.
[[nodiscard]] std::string OwnedOptions(const ProjectState& project);
/// Whether a project lists the file without it being a topic, in any case of letters.
[[nodiscard]] bool IsSupportFile(std::string_view name);

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
