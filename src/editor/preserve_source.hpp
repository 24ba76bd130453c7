// An edited document in the source that its author wrote.
#pragma once

#include <string>
#include <string_view>

namespace quorrel {

/// Takes the source of a topic as it was loaded, the web engine's serialisation right after that
/// and its serialisation now, all in UTF-8. Gives the source with only the edited places
/// replaced: a browser reads it as the document that `edited` is, white space between blocks
/// aside. Where the source cannot be kept, a stretch of it or all is the text of `edited`; an
/// edit is never lost. Raises nothing, whatever the texts are.
[[nodiscard]] std::string PreserveSource(std::string_view original, std::string_view base,
                                         std::string_view edited);

}  // namespace quorrel
