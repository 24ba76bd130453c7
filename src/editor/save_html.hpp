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

/// The save of the dialogs that work on graphics: to the working copy of the document, or where
/// the user says. `ok` is false after a message.
void SaveDocument(MainForm& main, bool save_as, bool& ok);

/// Pushes the source view's text onto the surface; one of fewer than 20 characters is taken for
/// an empty view and does nothing.
void SetHTML(MainForm& main);

/// Puts `html` on the surface as it is to have it: masked in the HTML Help edition, under the
/// same base address.
void ShowSource(MainForm& main, std::string_view html);

/// The message for a document that could not be saved; `number` is that of the run-time error.
void TellSaveFailure(MainForm& main, int number);

}  // namespace quorrel
