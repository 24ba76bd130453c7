// The text that shows where the selection stands in a document's source.
#pragma once

#include <string_view>

namespace quorrel {

/// Put into the document at the selection, looked up in the source and taken back by
/// DECMD_UNDO. A surface undoes a paste of it without a trace: the history, the dirty flag and
/// the selection are as before. No document may contain it.
inline constexpr std::string_view kSelectionMarker = "QRLSEL28";

}  // namespace quorrel
