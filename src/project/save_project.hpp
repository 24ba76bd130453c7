// Saving: an edited topic goes to a working copy beside its file, a save writes the project's
// files and puts the working copies in the place of the topics.
#pragma once

namespace quorrel {

class ListRow;
struct MainForm;

/// Writes the open document to its working copy and flags its topic; a document that is no topic
/// goes to its own file, if it was edited. False where it could not be written, after a message.
bool SetDirty(MainForm& main);

/// The Save command. False where something could not be saved, after a message: the flags of what
/// is unsaved stay then.
bool FileSave_Click(MainForm& main);

/// Puts the working copy of one flagged topic in its place. False where it stays, after a message.
bool SaveTopic(MainForm& main, ListRow& row);

/// Deletes the working copies of the flagged topics. The flags stay: the table is replaced next.
void ClearTempFiles(MainForm& main);

/// What became of the question whether to save.
namespace save_prompt {
inline constexpr int kNotNeeded = 0;
inline constexpr int kSaved = 1;
inline constexpr int kCancelled = 2;
inline constexpr int kDiscarded = 7;
}  // namespace save_prompt

/// Asks whether to save what has changed, and does so. Gives a save_prompt; after kCancelled,
/// which a save that failed gives too, the caller must leave off. After kDiscarded nothing is
/// lost yet: once it is sure that the project goes, the caller runs ClearTempFiles.
int PromptSaveChanges(MainForm& main);

}  // namespace quorrel
