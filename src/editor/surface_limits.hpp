// Which documents are too large for the editing surface.
#pragma once

#include <string_view>

namespace quorrel {

/// Whether the web engine can show and edit the document: a larger one would keep the window
/// waiting for minutes, or end the engine. It can still be edited as source.
[[nodiscard]] bool FitsSurface(std::string_view html);

/// What a pane says in place of a document that does not fit.
[[nodiscard]] std::string_view TooLargeMessage();

}  // namespace quorrel
