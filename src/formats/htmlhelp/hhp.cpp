#include "formats/htmlhelp/hhp.hpp"

#include <algorithm>
#include <iterator>

#include "app/main_form.hpp"
#include "platform/text.hpp"
#include "platform/text_lines.hpp"
#include "platform/unicode.hpp"
#include "project/paths.hpp"
#include "project/topic_title.hpp"

namespace quorrel {
namespace {

/// Files that every project lists and that are no topics.
constexpr std::string_view kSupportFiles[] = {"rtex.gif", "dwnex.gif", "htmlhelp.css", "master.js"};
constexpr std::string_view kTitleMark = ";Title=";

/// Lines of [OPTIONS] with one of these in them, anywhere, are written anew.
// "COMPILED FILE" is not among them: each save adds a further such line.
constexpr std::string_view kOwnedOptions[] = {"CONTENTS FILE", "INDEX FILE", "TITLE",
                                              "DEFAULT TOPIC", "ERROR LOG"};

/// The next line that is no support file, as long as these come in their fixed order. A file
/// that ends with one of them gives that one.
void ReadPastSupportFiles(TextLines& lines, std::string_view& line, const Trap& trap) {
    trap([&] { line = lines.ReadLine(); });
    for (const std::string_view name : kSupportFiles) {
        if (line == name) trap([&] { line = lines.ReadLine(); });
    }
}

bool IsOwnedOption(std::string_view line) {
    return std::any_of(std::begin(kOwnedOptions), std::end(kOwnedOptions),
                       [&](std::string_view key) { return ContainsIgnoringAsciiCase(line, key); });
}

/// What of the old file stays, with the owned options at the end of [OPTIONS].
std::string KeptLines(std::string_view old_text, const ProjectState& project) {
    std::string text;
    KeptProjectLines kept;
    TextLines lines(old_text);
    while (!lines.AtEnd()) {
        const std::string_view line = lines.ReadLine();
        const KeptProjectLines::Line fate = kept.Take(line);
        if (kept.EndedOptions()) text += OwnedOptions(project);
        if (fate == KeptProjectLines::Line::kKept) text.append(line).append(kLineEnd);
    }
    return text;
}

}  // namespace

KeptProjectLines::Line KeptProjectLines::Take(std::string_view line) {
    ended_options_ = false;
    if (line.empty()) return Line::kBlank;
    if (Contains(line, "[")) {
        ended_options_ = in_options_;
        in_options_ = in_owned_ = false;
    }
    if (ContainsIgnoringAsciiCase(line, "[OPTIONS]")) in_options_ = true;
    for (const std::string_view head : {"[FILES]", "[ALIAS]", "[MAP]"}) {
        if (ContainsIgnoringAsciiCase(line, head)) in_owned_ = true;
    }
    if (in_options_) return IsOwnedOption(line) ? Line::kOwnedOption : Line::kKept;
    return in_owned_ ? Line::kOwnedSection : Line::kKept;
}

bool IsSupportFile(std::string_view name) {
    return std::any_of(std::begin(kSupportFiles), std::end(kSupportFiles),
                       [&](std::string_view file) { return EqualsIgnoringCase(name, file); });
}

std::string OwnedOptions(const ProjectState& project) {
    const std::string_view proj = project.proj;
    std::string text;
    const auto line = [&](std::string_view key, std::string_view value) {
        text.append(key).append("=").append(value).append(kLineEnd);
    };
    line("Compiled file", MakeRelPathRel(std::string(BaseName(proj)) + ".chm", proj));
    line("Contents file", MakeRelPathRel(project.hhcfile, proj));
    line("Index file", MakeRelPathRel(project.hhkfile, proj));
    line("Title", project.project_title);
    line("Default topic", MakeRelPathRel(project.project_def_topic, proj));
    line("Error log file", "compiler.log");
    return text;
}

std::string ReadFileList(std::string_view text, std::string_view proj_path, ListView& ListTopics,
                         const TitleOfFile& title_of_file, const Trap& trap) {
    TextLines lines(text);
    std::string first_file;
    std::string_view line;
    std::string_view next;
    bool in_files = false;
    bool have_next = false;
    bool done = false;
    // A last line that was only looked ahead at is not taken: the text is at its end then.
    while (!lines.AtEnd() && !done) {
        if (next.empty() || !have_next) {
            ReadPastSupportFiles(lines, line, trap);
        } else {
            line = next;
        }
        if (in_files && !line.empty()) {
            std::string file(Trim(line));
            if (!Contains(file, ";")) file = MakeFullPath(file, proj_path);
            if (Contains(line, "[")) break;
            if (first_file.empty()) first_file = file;
            if (lines.AtEnd()) {
                done = true;
                next = {};
            } else {
                ReadPastSupportFiles(lines, next, trap);
                have_next = true;
            }
            std::optional<std::string> title;
            if (const std::size_t mark = next.find(kTitleMark); mark != npos) {
                have_next = false;
                title = next.substr(mark + kTitleMark.size());
            } else {
                title = title_of_file(file);
            }
            if (title) {
                ListRow& row = ListTopics.Add(std::move(*title));
                row.SetSubItem(topic_cell::kLocation, LocationOf(file, proj_path));
                row.SetSubItem(topic_cell::kFullPath, std::move(file));
            }
        }
        if (ContainsIgnoringAsciiCase(line, "[FILES]")) in_files = true;
    }
    return first_file;
}

std::string NewProjectText(const ProjectState& project) {
    const std::string owned = OwnedOptions(project);
    // "Full-text search" stands before the last owned line and is no option of the program's.
    const std::size_t error_log = owned.rfind("Error log");
    return "[OPTIONS]\r\nCompatibility=1.1\r\n" + owned.substr(0, error_log) +
           "Full-text search=Yes\r\n" + owned.substr(error_log) + "[FILES]\r\n";
}

std::string WriteProjectText(std::string_view old_text, const ProjectState& project,
                             const ListView& ListTopics) {
    std::string text = KeptLines(old_text, project);
    text.append("\r\n[FILES]\r\n");
    for (int i = 1; i <= ListTopics.Count(); ++i) {
        const ListRow& topic = ListTopics.At(i);
        text.append(MakeRelPathRel(topic.SubItems(topic_cell::kFullPath), project.proj));
        text.append(kLineEnd).append(kTitleMark).append(topic.Text()).append(kLineEnd);
    }
    for (const std::string_view file : kSupportFiles) text.append(file).append(kLineEnd);
    const std::string alias_file = std::string(BaseName(project.proj)) + ".ali";
    text.append("\r\n[ALIAS]\r\n#include ").append(MakeRelPathRel(alias_file, project.proj));
    text.append("\r\n\r\n[MAP]\r\n#include ")
        .append(MakeRelPathRel(project.java_map_file, project.proj));
    return text.append(kLineEnd);
}

void rebuildindex_Click(MainForm& main) {
    const Trap trap(main.log, "MainForm rebuildindex click: ");
    ProjectState& project = main.project;
    std::string text;
    if (!trap([&] { text = main.texts.Read(project.proj); })) return;
    main.texts.CheckKind(project.proj, text, {"[OPTIONS]", "[FILES]"});
    ShownProgress progress(main.window.progress, static_cast<int>(CountLines(text)));
    const TitleOfFile title_of_file = [&](const std::string& path) -> std::optional<std::string> {
        progress.Next();
        try {
            return ReadTopicTitle(main.files, path, main.texts.CodePageNumber());
        } catch (const RuntimeError& error) {
            // Its name stands for the title as long as the project is open, and is not written.
            main.texts.Known().NoteFailure(project.proj,
                                           main.files.NativePath(path) + ": " + error.what());
            return std::string(AfterLast(path, '\\'));
        }
    };
    std::string first_file =
        ReadFileList(text, project.proj_path, main.topics.ListTopics, title_of_file, trap);
    if (project.project_def_topic.empty()) project.project_def_topic = std::move(first_file);
}

void HTMLWriteProjectFile(MainForm& main) {
    // The label is that of the JavaHelp routine, as the log file has always had it.
    const Trap trap(main.log, "MainForm JavaWriteHelpSetFile: ");
    ProjectState& project = main.project;
    if (project.java_map_file.empty()) {
        project.java_map_file = std::string(BaseName(project.proj)) + ".h";
    }
    if (!main.files.FileExists(project.proj)) {
        trap([&] { main.texts.Write(project.proj, NewProjectText(project)); });
    }
    // Without the old text the sections of others would be lost: then nothing is written.
    std::string old_text;
    if (!trap([&] { old_text = main.texts.ReadAgain(project.proj); })) return;
    const std::string text = WriteProjectText(old_text, project, main.topics.ListTopics);
    main.texts.WriteAndSwap(project.proj, text, Backup::kKept, trap);
}

}  // namespace quorrel
