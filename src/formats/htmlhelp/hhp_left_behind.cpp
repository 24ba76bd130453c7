#include "formats/htmlhelp/hhp_left_behind.hpp"

#include <algorithm>
#include <optional>
#include <string>

#include "app/main_form.hpp"
#include "formats/htmlhelp/hhp.hpp"
#include "formats/htmlhelp/map_files.hpp"
#include "formats/unread_file.hpp"
#include "platform/text.hpp"
#include "platform/text_lines.hpp"
#include "platform/unicode.hpp"
#include "project/paths.hpp"

namespace quorrel {
namespace {

/// The name in a section's own line, "[NAME]", which must have nothing beside it.
std::optional<std::string> SectionHead(std::string_view line) {
    if (!line.starts_with('[') || !line.ends_with(']')) return std::nullopt;
    return UpperAscii(line.substr(1, line.size() - 2));
}

/// A value as profile files have it: one pair of quotes around it says nothing.
std::string_view Unquoted(std::string_view value) {
    value = TrimBlanksAndTabs(value);
    const bool is_quoted = value.size() >= 2 && value.front() == '"' && value.back() == '"';
    return is_quoted ? value.substr(1, value.size() - 2) : value;
}

class ProjectCheck {
  public:
    ProjectCheck(std::string_view text, const ProjectState& project, const ListView& ListTopics)
        : project_(project),
          topics_(ListTopics),
          owned_options_(OwnedOptions(project)),
          included_(FindMapFiles(text)) {
        TextLines lines(text);
        while (!lines.AtEnd()) TakeLine(lines.ReadLine());
    }

    [[nodiscard]] std::vector<LeftBehind> Findings() const {
        LossCount options = options_;
        // Without a section behind it [OPTIONS] gets none of the program's own lines.
        options.lost = lost_options_ + open_options_;
        // Each topic read is an entry of the list.
        LossCount entries = entries_;
        entries.lost = std::max(0, entries.seen - topics_.Count());
        return {entries.Of("entries of [FILES] that are no topics"),
                aliases_.Of("aliases inside [ALIAS]"),
                defines_.Of("#define lines inside [MAP]"),
                includes_.Of("#include lines beside another one"),
                options.Of("options"),
                {"comments and other lines", others_}};
    }

  private:
    void TakeLine(std::string_view whole_line) {
        const KeptProjectLines::Line fate = kept_.Take(whole_line);
        if (kept_.EndedOptions()) {
            lost_options_ += closed_options_;
            open_options_ = closed_options_ = 0;
        }
        const std::string_view line = TrimBlanksAndTabs(whole_line);
        if (line.empty()) return;
        if (auto head = SectionHead(line)) {
            section_ = std::move(*head);
        } else if (section_ == "FILES") {
            TakeFile(line);
        } else if (section_ == "ALIAS") {
            TakeAlias(line);
        } else if (section_ == "MAP") {
            TakeDefine(line);
        } else if (section_ == "OPTIONS" && line.front() != ';') {
            options_.See(false);
            if (fate == KeptProjectLines::Line::kOwnedOption) TakeOwnedOption(line);
            if (fate == KeptProjectLines::Line::kOwnedSection) ++lost_options_;
        } else if (fate != KeptProjectLines::Line::kKept) {
            ++others_;
        }
    }

    void TakeFile(std::string_view line) {
        if (line.starts_with(";Title=") || IsSupportFile(line)) return;
        if (line.front() == ';') {
            ++others_;
        } else {
            entries_.See(false);
        }
    }

    bool TakeInclude(std::string_view line, std::string_view taken) {
        const auto file = IncludedFile(line);
        if (file) includes_.See(*file != taken);
        return file.has_value();
    }

    void TakeAlias(std::string_view line) {
        if (TakeInclude(line, included_.alias_file)) return;
        const auto parts = line.front() == ';' ? std::nullopt : ParseAlias(line);
        if (!parts) {
            ++others_;
            return;
        }
        const ListRow* topic =
            topics_.LastWith(topic_cell::kFullPath, MakeFullPathRel(parts->file, project_.proj));
        aliases_.See(topic == nullptr ||
                     !EqualsIgnoringCase(topic->SubItems(topic_cell::kMapId), parts->alias));
    }

    void TakeDefine(std::string_view line) {
        if (TakeInclude(line, included_.map_file)) return;
        const auto definition = line.front() == ';' ? std::nullopt : ParseDefine(line);
        if (!definition) {
            ++others_;
            return;
        }
        const ListRow* topic = topics_.FirstWith(topic_cell::kMapId, definition->alias);
        defines_.See(topic == nullptr ||
                     topic->SubItems(topic_cell::kInteger) != definition->value);
    }

    /// An option that the program writes in its own way: is it still the author's?
    void TakeOwnedOption(std::string_view line) {
        const std::size_t equals = line.find('=');
        const std::string_view value =
            Unquoted(equals == npos ? std::string_view{} : line.substr(equals + 1));
        if (equals != npos && value.empty()) return;
        ++open_options_;
        const std::string_view key = TrimBlanksAndTabs(line.substr(0, equals));
        if (equals == npos || !SaysTheSame(key, value)) ++closed_options_;
    }

    [[nodiscard]] bool SaysTheSame(std::string_view key, std::string_view value) const {
        TextLines lines(owned_options_);
        while (!lines.AtEnd()) {
            const std::string_view line = lines.ReadLine();
            const std::size_t equals = line.find('=');
            if (!EqualsIgnoringCase(line.substr(0, equals), key)) continue;
            const std::string_view written = Unquoted(line.substr(equals + 1));
            return written == value || (!EqualsIgnoringCase(key, "Title") &&
                                        EqualsIgnoringCase(MakeFullPathRel(written, project_.proj),
                                                           MakeFullPathRel(value, project_.proj)));
        }
        return false;
    }

    const ProjectState& project_;
    const ListView& topics_;
    std::string owned_options_;
    MapFileNames included_;
    KeptProjectLines kept_;
    std::string section_;
    LossCount entries_, aliases_, defines_, includes_, options_;
    // Of the [OPTIONS] at hand: lost if it gets none of the owned options, lost if it gets them.
    int open_options_ = 0;
    int closed_options_ = 0;
    int lost_options_ = 0;
    int others_ = 0;
};

}  // namespace

std::vector<LeftBehind> LeftBehindInProject(std::string_view text, const ProjectState& project,
                                            const ListView& ListTopics) {
    return ProjectCheck(text, project, ListTopics).Findings();
}

void NoteLeftBehindInProject(MainForm& main) {
    const Trap trap(main.log, "MainForm rebuildindex click: ");
    const ProjectState& project = main.project;
    std::string text;
    if (!trap([&] { text = main.texts.Read(project.proj); })) return;
    main.texts.NoteLeftBehind(project.proj,
                              LeftBehindInProject(text, project, main.topics.ListTopics));
    if (main.settings.is_javahelp_edition) return;  // which writes other files
    const std::string base(BaseName(project.proj));
    const std::string folder(project.proj.substr(0, project.proj.rfind('\\') + 1));
    const std::string included = folder + FindMapFiles(text).alias_file;
    if (!EqualsIgnoringCase(included, base + ".ali")) NoteUnreadFile(main, base + ".ali", "");
    if (project.java_map_file.empty()) NoteUnreadFile(main, base + ".h", "");
}

}  // namespace quorrel
