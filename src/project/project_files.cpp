#include "project/project_files.hpp"

#include <algorithm>
#include <functional>
#include <vector>

#include "app/main_form.hpp"
#include "contents/node_data.hpp"
#include "platform/text.hpp"
#include "platform/unicode.hpp"
#include "project/working_copy.hpp"

namespace quorrel {
namespace {

/// Whether `plain` begins with the folder and a backslash.
template <typename Equal>
bool BeginsWith(std::string_view plain, std::string_view folder, Equal equal) {
    while (folder.ends_with('\\')) folder.remove_suffix(1);
    // The case of a letter may change the size of its character, so the end is looked for by text.
    for (std::size_t end = plain.find('\\'); end != npos; end = plain.find('\\', end + 1)) {
        if (equal(plain.substr(0, end), folder)) return true;
    }
    return false;
}

bool LeadsTo(const TreeView& contents, std::string_view path) {
    for (int i = 1; i <= contents.Count(); ++i) {
        const std::string_view location = NodeLocation(contents.At(i).Tag);
        if (EqualsIgnoringCase(location.substr(0, location.find('#')), path)) return true;
    }
    return false;
}

bool IsNamed(MainForm& main, const std::string& path) {
    if (EqualsIgnoringCase(path, TopicPath(main.editor.main_path))) return true;
    const TopicTables& topics = main.topics;
    return topics.ListTopics.FirstWith(topic_cell::kFullPath, path) != nullptr ||
           topics.ListAliases.FirstWith(alias_cell::kPath, path) != nullptr ||
           LeadsTo(main.contents.Tree1, path);
}

}  // namespace

std::string PlainPath(std::string_view path) {
    const std::string turned = ReplaceAll(path, "/", "\\");
    std::vector<std::string_view> parts;
    const std::string_view text = turned;
    for (std::size_t from = 0; from <= text.size();) {
        const std::size_t end = std::min(text.find('\\', from), text.size());
        const std::string_view part = text.substr(from, end - from);
        from = end + 1;
        const bool is_gap = part.empty() && !parts.empty() && !parts.back().empty();
        if (part == "." || is_gap) continue;
        if (part != "..") {
            parts.push_back(part);
        } else if (parts.size() > 1) {
            parts.pop_back();
        }
    }
    if (parts.empty()) return {};
    std::string plain(parts.front());
    for (std::size_t i = 1; i < parts.size(); ++i) plain.append("\\").append(parts[i]);
    return plain;
}

bool LiesBelow(FileSystem& files, std::string_view path, std::string_view folder) {
    if (folder.empty()) return false;
    const std::string plain = PlainPath(path);
    if (!BeginsWith(plain, PlainPath(folder), EqualsIgnoringCase)) return false;
    const std::string real = files.RealPath(plain);
    return real.empty() || BeginsWith(real, files.RealPath(folder), std::equal_to<>());
}

bool IsFileOfProject(MainForm& main, std::string_view path) {
    return LiesBelow(main.files, path, main.project.proj_path) ||
           LiesBelow(main.files, path, main.settings.Template_Dir) ||
           IsNamed(main, TopicPath(PlainPath(path)));
}

}  // namespace quorrel
