// The keyword index file .hhk.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "contents/contents_state.hpp"
#include "platform/controls/list_view.hpp"
#include "platform/failure.hpp"
#include "platform/left_behind.hpp"

namespace quorrel {

struct MainForm;

/// Appends the entries of `text` to the keyword table, and the keywords of each topic that an
/// entry leads to, to its row of `ListTopics`. Entries nested deeper than two levels know only
/// the keyword before them as their parent. Gives what of the file could not be taken.
std::vector<LeftBehind> ReadKeywords(std::string_view text, std::string_view proj_path,
                                     KeywordState& keywords, ListView& ListTopics,
                                     const Trap& trap);

/// The text of the file, in two levels. Nothing is escaped. A last row that is a sub-entry
/// leaves its list open, as the format has it here.
[[nodiscard]] std::string WriteKeywords(const KeywordState& keywords, std::string_view proj);

/// Fills ListKeywords from hhkfile.
void ReadIndex(MainForm& main);
/// Writes hhkfile, changed or not.
void HTMLWriteIndex(MainForm& main);

}  // namespace quorrel
