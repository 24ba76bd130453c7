// The open topic's title, identifier, number and keywords, between the property fields, the row
// of ListTopics, the keyword store and the document's title tag.
#pragma once

#include <string>
#include <string_view>

namespace quorrel {

struct MainForm;

/// Finds the open topic's row, selects it in the topic table and shows its title and path in the
/// status bar.
void SyncTopicSelection(MainForm& main);

/// Fills the fields from the row. A keyword that the store does not know is not shown.
void LoadTopicProperties(MainForm& main);
/// Stores the fields and writes the topic's working copy. With a template open, or without a
/// topic, nothing is stored.
void SaveTopicProperties(MainForm& main);

/// The text with `title` behind its first title tag; a text without the tag stays as it is.
[[nodiscard]] std::string WithTitle(std::string_view html, std::string_view title);
/// Rewrites the title tag of the open document.
void SetDocumentTitle(MainForm& main, std::string_view title);

}  // namespace quorrel
