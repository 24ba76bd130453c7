#include "formats/htmlhelp/map_files.hpp"

#include <algorithm>
#include <optional>

#include "app/main_form.hpp"
#include "platform/text.hpp"
#include "platform/text_lines.hpp"
#include "project/paths.hpp"

namespace quorrel {
namespace {

constexpr std::string_view kInclude = "#include";
constexpr std::string_view kDefine = "#define";

/// The first blank from `from` on or, only where there is none at all, the first tab.
std::size_t FindSeparator(std::string_view line, std::size_t from) {
    const std::size_t blank = line.find(' ', from);
    return blank != npos ? blank : line.find('\t', from);
}

std::string_view FolderWithBackslash(std::string_view proj) {
    return proj.substr(0, proj.rfind('\\') + 1);
}

std::string AliasFileOf(std::string_view proj) {
    return std::string(BaseName(proj)) + ".ali";
}

/// Sets a cell; true where that takes another value away.
bool Replace(ListRow& row, int cell, std::string_view value) {
    const bool takes_away = !row.SubItems(cell).empty() && row.SubItems(cell) != value;
    row.SetSubItem(cell, std::string(value));
    return takes_away;
}

/// The comments of a header, by the rules of the C languages.
class HeaderComments {
  public:
    /// The next line; true if what stands at `place` of it is commented out.
    bool TakeLine(std::string_view line, std::size_t place) {
        bool is_hidden = false;
        for (std::size_t i = 0; i < line.size(); ++i) {
            if (i == place) is_hidden = in_block_;
            const std::string_view pair = line.substr(i, 2);
            if (!in_block_ && pair == "//") return is_hidden || (place != npos && place > i);
            if (pair != (in_block_ ? "*/" : "/*")) continue;
            in_block_ = !in_block_;
            ++i;
        }
        return is_hidden;
    }

  private:
    bool in_block_ = false;
};

}  // namespace

std::optional<std::string> IncludedFile(std::string_view line) {
    const std::size_t at = line.find(kInclude);
    if (at == npos) return std::nullopt;
    const std::size_t separator = FindSeparator(line, at + kInclude.size());
    if (separator == npos) return std::nullopt;
    std::string_view name = line.substr(separator + 1);
    if (const std::size_t quote = name.find('"'); quote != npos) {
        name.remove_prefix(quote + 1);
        name = name.substr(0, name.find('"'));
    }
    if (const std::size_t open = name.find('<'); open != npos) name.remove_prefix(open + 1);
    return std::string(name.substr(0, name.find('>')));
}

std::optional<AliasLine> ParseAlias(std::string_view line) {
    const std::size_t equals = line.find('=');
    if (equals == npos) return std::nullopt;
    const AliasLine parts{Trim(line.substr(0, equals)), TrimLeft(line.substr(equals + 1))};
    if (parts.alias.empty() || parts.file.empty()) return std::nullopt;
    return parts;
}

std::optional<Definition> ParseDefine(std::string_view line) {
    const std::size_t define = line.find(kDefine);
    if (define == npos) return std::nullopt;
    const std::size_t separator = FindSeparator(line, define + kDefine.size());
    if (separator == npos) return std::nullopt;
    const std::size_t start = line.find_first_not_of(" \t", separator);
    if (start == npos) return std::nullopt;
    const std::size_t end = FindSeparator(line, start);
    if (end == npos) return std::nullopt;
    const std::size_t value = line.find_first_not_of(" \t", end);
    return Definition{Trim(line.substr(start, end - start)),
                      value == npos ? std::string_view{} : Trim(line.substr(value))};
}

MapFileNames FindMapFiles(std::string_view hhp_text) {
    MapFileNames names;
    bool in_alias = false;
    bool in_map = false;
    TextLines lines(hhp_text);
    while (!lines.AtEnd()) {
        const std::string_view line = lines.ReadLine();
        if (Contains(line, "[")) {
            in_alias = ContainsIgnoringAsciiCase(line, "[ALIAS]");
            in_map = ContainsIgnoringAsciiCase(line, "[MAP]");
        }
        if (!in_alias && !in_map) continue;
        if (const auto file = IncludedFile(line)) {
            if (in_alias) names.alias_file = *file;
            if (in_map) names.map_file = *file;
        }
    }
    return names;
}

std::vector<LeftBehind> ReadAliases(std::string_view text, std::string_view proj,
                                    ListView& ListTopics) {
    LossCount aliases, further;
    int others = 0;
    TextLines lines(text);
    while (!lines.AtEnd()) {
        const std::string_view line = lines.ReadLine();
        const auto parts = ParseAlias(line);
        if (!parts) {
            if (!TrimBlanksAndTabs(line).empty()) ++others;
            continue;
        }
        ListRow* topic =
            ListTopics.FirstWith(topic_cell::kFullPath, MakeFullPathRel(parts->file, proj));
        aliases.See(topic == nullptr);
        if (topic != nullptr) further.See(Replace(*topic, topic_cell::kMapId, parts->alias));
    }
    return {aliases.Of("aliases of no topic"),
            further.Of("aliases of topics with another one"),
            {"comments and other lines", others}};
}

std::vector<LeftBehind> ReadMapHeader(std::string_view text, ListView& ListTopics,
                                      std::int64_t& next_integer) {
    LossCount numbers, further;
    int others = 0;
    int revived = 0;
    HeaderComments comments;
    TextLines lines(text);
    while (!lines.AtEnd()) {
        const std::string_view line = lines.ReadLine();
        const auto definition = ParseDefine(line);
        const bool is_hidden = comments.TakeLine(line, line.find(kDefine));
        if (definition) {
            next_integer = std::max(next_integer, LeadingNumber(definition->value));
        }
        if (!definition || definition->alias.empty() || definition->value.empty()) {
            if (!TrimBlanksAndTabs(line).empty()) ++others;
            continue;
        }
        ListRow* topic = ListTopics.FirstWith(topic_cell::kMapId, definition->alias);
        numbers.See(topic == nullptr);
        if (topic == nullptr) continue;
        further.See(Replace(*topic, topic_cell::kInteger, definition->value));
        if (is_hidden) ++revived;
    }
    return {numbers.Of("#define lines of no topic"),
            further.Of("#define lines of topics with another number"),
            {"#define lines in comments, taken as numbers", revived},
            {"comments and other lines", others}};
}

std::string WriteAliases(const ListView& ListTopics, std::string_view proj) {
    std::string text;
    for (int i = 1; i <= ListTopics.Count(); ++i) {
        const ListRow& topic = ListTopics.At(i);
        text.append(topic.SubItems(topic_cell::kMapId)).append("=");
        text.append(MakeRelPathRel(topic.SubItems(topic_cell::kFullPath), proj)).append(kLineEnd);
    }
    return text;
}

std::string WriteMapHeader(const ListView& ListTopics) {
    std::string text;
    for (int i = 1; i <= ListTopics.Count(); ++i) {
        const ListRow& topic = ListTopics.At(i);
        const std::string& alias = topic.SubItems(topic_cell::kMapId);
        const std::string& number = topic.SubItems(topic_cell::kInteger);
        if (alias.empty() || number.empty()) continue;
        text.append(kDefine).append(" ").append(alias).append(" ").append(number).append(kLineEnd);
    }
    return text;
}

/// Where the aliases could not be read, nothing may be written that would be made of them.
static void KeepWhatNeedsTheAliases(MainForm& main, const std::string& alias_file) {
    const std::string reason = main.texts.Known().FailureOf(alias_file);
    if (reason.empty()) return;
    const ProjectState& project = main.project;
    const std::string header = project.java_map_file.empty()
                                   ? std::string(BaseName(project.proj)) + ".h"
                                   : project.java_map_file;
    KnownFiles& known = main.texts.Known();
    const std::string aliases = AliasFileOf(project.proj);
    known.NoteFailure(aliases, reason);
    known.NoteFailure(header, reason);
    // Written anew the project would not name another file of aliases any more.
    if (!EqualsIgnoringCase(aliases, alias_file)) known.NoteFailure(project.proj, reason);
}

void ReadHTMLMapFiles(MainForm& main) {
    // The label is that of the JavaHelp routine, as the log file has always had it.
    const Trap trap(main.log, "MainForm ReadJavaMapFile: ");
    main.window.StatusBar1.SetPanel(1, "Reading Map Files...");
    ProjectState& project = main.project;
    const std::string folder(FolderWithBackslash(project.proj));
    std::string alias_file;
    std::string text;
    if (trap([&] { text = main.texts.Read(project.proj); })) {
        MapFileNames names = FindMapFiles(text);
        if (!names.map_file.empty()) project.java_map_file = std::move(names.map_file);
        if (!names.alias_file.empty()) {
            alias_file = folder + names.alias_file;
            if (trap([&] { text = main.texts.Read(alias_file); })) {
                main.texts.CheckKind(alias_file, text, {"="});
                main.texts.NoteLeftBehind(alias_file,
                                          ReadAliases(text, project.proj, main.topics.ListTopics));
            }
        }
    }
    if (!project.java_map_file.empty()) {
        project.java_map_file.insert(0, folder);
        if (trap([&] { text = main.texts.Read(project.java_map_file); })) {
            main.texts.CheckKind(project.java_map_file, text, {"#DEFINE"});
            main.texts.NoteLeftBehind(
                project.java_map_file,
                ReadMapHeader(text, main.topics.ListTopics, project.next_integer));
        }
    }
    KeepWhatNeedsTheAliases(main, alias_file);
}

void HTMLWriteMapFile(MainForm& main) {
    const Trap trap(main.log, "MainForm JavaWriteMapFile: ");
    ProjectState& project = main.project;
    const ListView& topics = main.topics.ListTopics;
    if (project.java_map_file.empty()) {
        project.java_map_file = std::string(BaseName(project.proj)) + ".h";
    }
    // A step each: what keeps one of them from being written says nothing about the other.
    main.texts.WriteAndSwap(AliasFileOf(project.proj), WriteAliases(topics, project.proj),
                            Backup::kNone, trap);
    main.texts.WriteAndSwap(project.java_map_file, WriteMapHeader(topics), Backup::kNone, trap);
}

}  // namespace quorrel
