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

    // Files of the templates are listed without being topics, so a topic of their name goes.
    for (int i = 1; i <= tables.ListTopics.Count(); ++i) {
        const std::string& location = tables.ListTopics.At(i).SubItems(topic_cell::kLocation);
        if (IsSupportFile(AfterLast(location, '\\'))) return 0;
    }
    // Compared is the list: each save adds a line "Compiled file=", and lines that belong to no
    // section may change places.
    const auto listed = [&](const std::string& of_text) {
        TopicTables again;
        ReadFileList(of_text, project.proj_path, again.ListTopics, TitleOf, trap);
        std::string rows;
        for (int i = 1; i <= again.ListTopics.Count(); ++i) {
            const ListRow& row = again.ListTopics.At(i);
            rows.append(row.Text()).append("|").append(row.SubItems(topic_cell::kFullPath));
            rows += '\n';
        }
        return std::pair(rows, WriteProjectText(of_text, project, again.ListTopics));
    };
    const auto once = listed(listed(written).second);
    fuzz::CheckSame(listed(once.second).first, once.first, "the list is read as it was written");
    return 0;
}
