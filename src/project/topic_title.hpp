// The title of a topic file.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "platform/file_system.hpp"

namespace quorrel {

/// How a title over several lines is put together: the pieces as they are, or each one trimmed
/// and the whole as well.
enum class TitlePieces { kAsFound, kTrimmed };

/// The title of the HTML `text` of the file `path`, its escapes left alone. A text that comes to
/// its "<BODY" without a title gives the file's name, one that ends before gives nothing. A title
/// over several lines has them joined by blanks.
[[nodiscard]] std::optional<std::string> ScanTopicTitle(std::string_view text,
                                                        std::string_view path,
                                                        TitlePieces pieces = TitlePieces::kAsFound);

/// A title as authors see it: with the characters that references in it stand for.
[[nodiscard]] std::string TitleText(std::string_view html);
/// A title as it goes into a topic's source: as it stands, unless TitleText or a browser would
/// take a part of it for a reference or a tag.
[[nodiscard]] std::string TitleInHtml(std::string_view title);

/// The TitleText of a topic file, in its own encoding (`code_page` where it tells none, or one that
/// the title does not fit), with no more of it read than needed. Nothing for a file that does not
/// exist; one that cannot be read raises as FileSystem::ReadFile.
[[nodiscard]] std::optional<std::string> ReadTopicTitle(FileSystem& files, std::string_view path,
                                                        int code_page,
                                                        TitlePieces pieces = TitlePieces::kAsFound);

}  // namespace quorrel
