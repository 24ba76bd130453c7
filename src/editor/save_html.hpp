// Writing the open document to a file.
#pragma once

#include <string>
#include <string_view>

namespace quorrel {

struct MainForm;

/// Waits until the surface is idle, letting events run.
void WaitForSurface(MainForm& main);

/// Turns absolute local links (`="file://...`), as a surface resolves them, into links relative
/// to the topic `main_path`.
[[nodiscard]] std::string RepairLocalLinks(std::string html, std::string_view main_path);

/// Writes the document to `path`, links repaired and OBJECT tags unmasked, in its encoding; an
/// empty path does nothing. False, after a message, where the file could not be written: it is as
/// it was then, and the document stays to be saved.
bool SaveHTML(MainForm& main, std::string_view path);

/// The save of the dialogs that work on graphics: to the working copy of the document. With
/// `save_as` a copy goes where the user says; the document stays that of its own file, and what
/// is edited later goes there alone. `ok` is false after a message.
void SaveDocument(MainForm& main, bool save_as, bool& ok);

/// The message for a document that could not be saved; `number` is that of the run-time error.
void TellSaveFailure(MainForm& main, int number);

}  // namespace quorrel
