// The map file of JavaHelp .jhm: map ids and their addresses.
#pragma once

#include <functional>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/list_view.hpp"
#include "platform/left_behind.hpp"
#include "project/project_state.hpp"

namespace quorrel {

struct MainForm;

/// Gives the trimmed title of a topic file, or nothing where it has none or does not exist.
using TitleOfTopic = std::function<std::optional<std::string>(const std::string& path)>;

/// Gives the full path that the address of an entry stands for.
using PathOfAddress = std::function<std::string(const std::string& address)>;

/// Appends a topic row for each address of an HTML file that has a title, and an alias row for
/// everything else: images and places within topics. Each element stands on one line. Gives what
/// of the file could not be taken.
std::vector<LeftBehind> ReadMap(std::string_view text, std::string_view proj_path,
                                ListView& ListTopics, ListView& ListAliases,
                                const PathOfAddress& path_of_address,
                                const TitleOfTopic& title_of_topic,
                                XmlForm form = XmlForm::kAsTyped);

/// The text of the file: images, topics, then everything else, each in the order of its table.
/// Addresses are relative to `file`, the map itself, as viewers take them. As typed nothing is
/// escaped. Titles are not kept. An image is what has ".gif" or ".jpg" anywhere in its path, also a
/// place in a topic. A row without a map id and an address is left out.
[[nodiscard]] std::string WriteMap(const TopicTables& tables, std::string_view file,
                                   XmlForm form = XmlForm::kAsTyped);

/// Reads java_map_file; the tables are not cleared.
void ReadJavaMapFile(MainForm& main);
/// Writes java_map_file, changed or not.
void JavaWriteMapFile(MainForm& main);

}  // namespace quorrel
