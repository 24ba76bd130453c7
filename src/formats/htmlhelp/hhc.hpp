// The contents file .hhc, and the outline of the printed document, which has the same form.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/list_view.hpp"
#include "platform/controls/tree_view.hpp"
#include "platform/failure.hpp"
#include "platform/left_behind.hpp"

namespace quorrel {

struct MainForm;

/// What the reader takes beside the text.
struct ContentsSource {
    std::string_view file;  // full path; locations are relative to its folder
    bool is_javahelp_edition = false;
    ListView& ListTopics;
    ListView& ListAliases;  // the JavaHelp edition adds a row for a location without a topic
    const Trap& trap;
};

/// Appends the entries of `text` to `tree` and a site-properties object to `site_properties`.
/// Each <param> stands on a line of its own below "<LI". Entries nested too deep are logged and
/// not placed. Gives what of the file could not be taken.
std::vector<LeftBehind> ReadContents(std::string_view text, const ContentsSource& source,
                                     TreeView& tree, std::string& site_properties);

/// The text of the file. Locations become relative to `proj`, whatever folder the file is in.
[[nodiscard]] std::string WriteContents(const TreeView& tree, std::string_view site_properties,
                                        std::string_view proj);

/// Fills Tree1 from hhcfile.
void ReadTOC(MainForm& main);
/// Writes hhcfile if toc_dirty.
void HTMLWriteTOC(MainForm& main);
/// Fills TreeDoc from doc_outline.
void ReadDocOutline(MainForm& main);
/// Writes doc_outline if doc_dirty.
void WriteDocOutline(MainForm& main);

}  // namespace quorrel
