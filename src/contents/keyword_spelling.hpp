// How a keyword is spelled: by authors, by the index, and anew.
#pragma once

#include <string>
#include <string_view>

#include "contents/contents_state.hpp"
#include "platform/controls/list_view.hpp"

namespace quorrel {

/// A full key as authors see it: ":" alone between main key and sub-key.
[[nodiscard]] std::string ShownKey(std::string_view full_key);
/// The full key of what an author has typed. The first ":" ends the main key; any other one is
/// part of the sub-key ("time:12:30", "std::vector").
[[nodiscard]] std::string FullKeyOf(std::string_view shown);
/// The row of the keyword that authors see as `shown`, or null. Other programs write ":" into main
/// keys too, so its full key need not be FullKeyOf(shown).
[[nodiscard]] ListRow* KeywordShownAs(const ListView& ListKeywords, std::string_view shown);

/// `full_key` in the letters of `shown`, which is ShownKey(full_key) but for the case of letters.
[[nodiscard]] std::string InLettersOf(std::string_view full_key, std::string_view shown);

/// Respells the key `old_key` as `new_key`, both full keys that differ in the case of letters: in
/// the texts of all rows that have it in their full key, as a row's own key and main key, and in
/// the keyword cells of all topics.
void RespellKeyword(KeywordState& keywords, ListView& ListTopics, std::string_view old_key,
                    std::string_view new_key);

}  // namespace quorrel
