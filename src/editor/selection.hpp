// The selection as a place in the document's source. The surface only knows ranges of its own, so
// a marker goes into the document at the selection, the source is read, and the marker is taken
// back; from then on the work is done on `docbuf`, which goes back to the surface as a whole.
#pragma once

#include <memory>
#include <string_view>

#include "platform/edit_surface.hpp"

namespace quorrel {

struct MainForm;

/// The element that holds the selection's start, or the selected control; null where there is
/// none. Raises what the surface raises.
[[nodiscard]] std::unique_ptr<Element> GetSelectionElement(MainForm& main);

/// Fills docbuf, SelStart, SelLen, seltext and multi_cell_selection; the surface is as before.
/// Errors are ignored, each failed step leaves its variables as they are: SelStart is 0 if the
/// marker did not reach the document, as with a selected control.
void GetSelection(MainForm& main);

/// Keeps the place of the selection's start in SelEnd, 0 for a control, and sets the caret there.
/// Errors are ignored.
void SaveSelection(MainForm& main);
/// Sets the caret to the place in SelEnd and shows it. Errors are ignored.
void RestoreSelection(MainForm& main);

/// Gives docbuf to the surface under the same BaseURL; the caret comes back to the place in
/// SelEnd with DocumentComplete.
void ShowDocbuf(MainForm& main);
/// Replaces the selection's stretch of docbuf, behind GetSelection, and gives docbuf to the
/// surface. False, and nothing done, if SelStart is in no place of docbuf.
bool ReplaceSelectedSource(MainForm& main, std::string_view html);

}  // namespace quorrel
