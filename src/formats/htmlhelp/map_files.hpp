// The alias file .ali ("alias=file" lines) and the map header .h ("#define alias number").
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/list_view.hpp"
#include "platform/left_behind.hpp"

namespace quorrel {

struct MainForm;

/// The files that the [ALIAS] and [MAP] sections of a .hhp include, as written there; the last
/// #include of a section counts. Empty where there is none.
struct MapFileNames {
    std::string alias_file;
    std::string map_file;
};
[[nodiscard]] MapFileNames FindMapFiles(std::string_view hhp_text);

/// The file name of an #include line: in double quotes, in angle brackets, or bare.
[[nodiscard]] std::optional<std::string> IncludedFile(std::string_view line);

/// "alias=file"; the blanks behind the file are a part of its name.
struct AliasLine {
    std::string_view alias;
    std::string_view file;
};
[[nodiscard]] std::optional<AliasLine> ParseAlias(std::string_view line);

/// "#define alias number", wherever it stands on the line; the number is the rest of it.
struct Definition {
    std::string_view alias;
    std::string_view value;
};
[[nodiscard]] std::optional<Definition> ParseDefine(std::string_view line);

/// Gives the topics of `text`, an .ali, their aliases. Files are relative to `proj`. Gives what
/// of the file is not kept: a topic has one alias, the last.
std::vector<LeftBehind> ReadAliases(std::string_view text, std::string_view proj,
                                    ListView& ListTopics);
/// Gives the topics of `text`, a header, their context numbers, by their aliases. `next_integer`
/// rises to the highest number found, also that of an unknown alias. Gives what of the file is not
/// kept: a topic has one number, the last, and nothing but these lines is written again.
std::vector<LeftBehind> ReadMapHeader(std::string_view text, ListView& ListTopics,
                                      std::int64_t& next_integer);

/// One line a topic, also without an alias.
[[nodiscard]] std::string WriteAliases(const ListView& ListTopics, std::string_view proj);
/// One line for each topic with both an alias and a number.
[[nodiscard]] std::string WriteMapHeader(const ListView& ListTopics);

/// Reads both files; sets java_map_file to the full path of the header if there is one.
void ReadHTMLMapFiles(MainForm& main);
/// Writes both files, without a backup.
void HTMLWriteMapFile(MainForm& main);

}  // namespace quorrel
