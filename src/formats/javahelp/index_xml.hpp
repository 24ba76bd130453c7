// The keyword index of JavaHelp, Index.xml.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "contents/contents_state.hpp"
#include "platform/failure.hpp"
#include "platform/left_behind.hpp"
#include "project/project_state.hpp"

namespace quorrel {

struct MainForm;

/// Appends the items of `text` to the keyword table, and their keywords to the topics that they
/// lead to. A line with the program's repeat mark adds its target to the row before, and a group
/// that it opens is that row's.
/// Gives what of the file could not be taken.
std::vector<LeftBehind> ReadIndexXml(std::string_view text, KeywordState& keywords,
                                     TopicTables& tables, const Trap& trap,
                                     XmlForm form = XmlForm::kAsTyped);

/// A keyword's text stands again before each of its targets, a map id wherever it is one, so a file
/// made for it could fill the memory. Beyond this many bytes the two below raise 7.
inline constexpr std::size_t kLargestIndex = std::size_t{512} << 20;

/// The map ids of the topics and aliases that the keyword leads to, each followed by ";". Only a
/// path with "#" is looked for among the aliases. A target that its table lacks gives none.
[[nodiscard]] std::string JavaIndexTargets(const ListRow& keyword, const TopicTables& tables,
                                           std::size_t largest = kLargestIndex);

/// The text of the file, in two levels. An item has one target, so each further one gets a line of
/// its own with the number behind the text and the repeat mark. A group is closed only by a row
/// behind it: a last row that is a sub-entry leaves its group open.
[[nodiscard]] std::string WriteIndexXml(const ListView& ListKeywords, const TopicTables& tables,
                                        XmlForm form = XmlForm::kAsTyped,
                                        std::size_t largest = kLargestIndex);

/// Fills ListKeywords from hhkfile, if there is such a file.
void JavaReadIndex(MainForm& main);
/// Writes hhkfile if index_dirty, which is cleared unless that fails.
void JavaWriteIndex(MainForm& main);

}  // namespace quorrel
