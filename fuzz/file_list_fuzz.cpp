// The list of files of a project file, and the file written anew. Input: the text.
#include "formats/htmlhelp/hhp.hpp"
#include "fuzz_support.hpp"
#include "platform/text.hpp"

using namespace quorrel;

static std::optional<std::string> TitleOf(const std::string& path) {
    if (Contains(path, "untitled")) return std::nullopt;
    return std::string(AfterLast(path, '\\'));
}

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
    const std::string text = fuzz::Input(data, size).RestAsText();
    const fuzz::QuietTrap trap;
    TopicTables tables;
    ProjectState project;
    project.proj = fuzz::kProject;
    project.proj_path = fuzz::kProjectFolder;
    project.hhcfile = fuzz::kContentsFile;
    project.project_def_topic =
        ReadFileList(text, project.proj_path, tables.ListTopics, TitleOf, trap);
    const std::string written = WriteProjectText(text, project, tables.ListTopics);

    TopicTables again;
    ReadFileList(written, project.proj_path, again.ListTopics, TitleOf, trap);
    return 0;
}
