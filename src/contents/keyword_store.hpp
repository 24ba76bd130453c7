// Operations on the keyword table: the only ones that change what a keyword leads to.
#pragma once

#include <string>
#include <string_view>

#include "contents/contents_state.hpp"
#include "platform/controls/list_view.hpp"

namespace quorrel {

struct MainForm;

/// Adds `title` with `path` (taken literally) as a target under each key of `keys`. These are
/// full keys, each closed by ";"; a bookmark may follow a key behind "##". Rows are made as
/// needed, a main key's before its first sub-key. In a JavaHelp project a bookmark gets a map id.
void AddToIndex(MainForm& main, std::string_view title, std::string_view path,
                std::string_view keys);

/// Removes the targets that contain `path` from one key, and the row when nothing is left. `key`
/// is a full key, as the cells of topics have them, and may carry "##" and a bookmark.
void DeleteKeyFromIndex(KeywordState& keywords, std::string_view key, std::string_view path);

/// Replaces `old_title` by `new_title`, wherever it stands in a title, in the targets of the rows
/// that hold `path`; so other topics with the same title text are renamed there as well.
void RenameTitleInIndex(KeywordState& keywords, std::string_view new_title,
                        std::string_view old_title, std::string_view path);

/// The row of a full key, or null. One that a file has with its note keeps that and goes before the
/// one that the key has by its identity.
[[nodiscard]] ListRow* KeywordRow(const ListView& ListKeywords, std::string_view key);

/// The identity of a key: without a note in parentheses.
[[nodiscard]] std::string StripKeyNote(std::string_view key);

}  // namespace quorrel
