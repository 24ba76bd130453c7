// The open document's text, which the surface and the source view hand to and fro.
#pragma once

#include <string_view>

namespace quorrel {

struct MainForm;

/// Puts `html` on the surface as it is to have it: masked in the HTML Help edition, under the
/// same base address.
void ShowSource(MainForm& main, std::string_view html);

/// Pushes the source view's text onto the surface; one of fewer than 20 characters is taken for
/// an empty view and does nothing.
void SetHTML(MainForm& main);

/// If the author works in the source view, the surface gets what was typed there since it got the
/// text last. Its DocumentHTML gives that at once.
void TakeBackSource(MainForm& main);

/// Shows the text of a document in the source view. That is no change by the author. Without a
/// document on the surface the view takes no text, since there is no file that it could go to.
void ShowInSource(MainForm& main, std::string_view html);

/// The document has got another text by a routine or another spelling by the surface: the source
/// view follows, unless the author has typed there meanwhile. The caret stays in its line.
void FollowInSource(MainForm& main);

/// Nothing is open any longer, and nothing is left that a save could take. `why` tells the reader
/// what is missing there.
void CloseDocument(MainForm& main, std::string_view why);

/// Whether the document says something that no file has: neither the one that it was loaded from
/// nor the one that it was written to last. Takes the source view's text back first.
[[nodiscard]] bool IsDocumentEdited(MainForm& main);

}  // namespace quorrel
