// The encoding of a topic file, which keeps its own.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/encoding.hpp"

namespace quorrel {

/// What a byte-order mark or the declared charset says, for which the first 4 KB are enough.
/// Nothing where all of the text must tell.
[[nodiscard]] std::optional<TextEncoding> ToldEncoding(std::string_view head, int code_page);

/// A byte-order mark, else the charset that the head declares, else UTF-8 where all of `bytes`
/// is valid as that beyond ASCII, else `code_page`.
[[nodiscard]] TextEncoding TopicEncoding(std::string_view bytes, int code_page);

/// A topic as the editing surfaces take it.
struct TopicText {
    std::string text;  // UTF-8, without a byte-order mark
    TextEncoding encoding;
};

/// Decodes a topic file. Raises a surface_error for a frameset and for a page that is mostly
/// server-side script.
[[nodiscard]] TopicText ReadTopicText(std::string_view bytes, int code_page);

/// The bytes of a topic file. A character that the encoding lacks becomes a decimal reference. If
/// the text declares another charset than `encoding`, as after an edit of the declaration, it is
/// written in that one.
[[nodiscard]] std::string TopicBytes(std::string_view text, const TextEncoding& encoding);

}  // namespace quorrel
