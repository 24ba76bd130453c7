// What the contents and the index file share: both are sitemaps, a dialect of HTML that is read
// line by line.
#pragma once

#include <string>
#include <string_view>

#include "platform/failure.hpp"
#include "platform/text_files.hpp"
#include "platform/text_lines.hpp"

namespace quorrel {

/// Notes a file that lies in the place of a sitemap and is another page (TextFiles::CheckKind).
void CheckSitemapKind(TextFiles& texts, std::string_view file, std::string_view text);

/// Which tags a line holds, anywhere on it and in any case of letters.
struct SitemapTags {
    bool list_start = false;    // "<UL"
    bool list_end = false;      // "</UL"
    bool entry_start = false;   // "<LI"
    bool object_start = false;  // "<OBJECT"
    bool object_end = false;    // "</OBJECT>"
};
[[nodiscard]] SitemapTags FindSitemapTags(std::string_view line);

/// A name and value of a <param> line; each is empty where the line has none.
struct SitemapParam {
    std::string name;
    std::string value;
};
[[nodiscard]] SitemapParam ReadSitemapParam(std::string_view line);

/// If `line`, with the tags `tags`, opens a site-properties object, appends it and the lines up to
/// its end to `properties`, each with CR LF; `line` is the last of them then. An object without an
/// end takes the rest of the file, and the trap's log gets the end of the file as a failure.
void ReadSiteProperties(std::string_view& line, SitemapTags& tags, TextLines& lines,
                        std::string& properties, const Trap& trap);

/// The lines before the first entry; `properties` of 20 characters or fewer are left out.
[[nodiscard]] std::string SitemapHead(std::string_view properties);
/// The lines behind the last entry.
[[nodiscard]] std::string_view SitemapTail();

/// Five blanks a level.
[[nodiscard]] std::string SitemapIndent(int level);
/// Appends a <param> line; nothing in the value is escaped here.
void AppendSitemapParam(std::string& text, std::string_view indent, std::string_view name,
                        std::string_view value);

}  // namespace quorrel
