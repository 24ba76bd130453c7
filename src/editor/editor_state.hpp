// The open document.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <unordered_map>

#include "platform/file_system.hpp"
#include "platform/unicode.hpp"

namespace quorrel {

/// A topic's file as it was when it was loaded, to know whether another program has changed it.
struct LoadedFile {
    FileStamp stamp;
    std::size_t hash = 0;  // of its bytes
};

struct EditorState {
    std::string main_path;      // the topic as the caller of LoadFile named it
    std::string new_main_path;  // what LoadFile is to open next
    std::string temp_path;      // the file that is on the surface: the topic or its working copy
    bool ActiveDirty = false;
    bool TopicPropDirty = false;
    // A boolean kept as text: the document is a topic template.
    std::string new_topic_template = "False";
    bool SourceViewActive = false;    // the author works in Source1; the surface may be stale
    bool source_edited = false;       // Source1 has text that the surface has not been given yet
    bool BlockFormatsLoaded = false;  // FormatSub has the block formats of the surface

    // The document's text, in the form of the surface, as a file has it: the one that it was loaded
    // from or the one that it was written to last.
    std::string kept_html;
    bool loading = false;  // LoadFile runs; an event in its waits must not begin another one
    // The topics' files as loaded since the project was opened, by their full paths.
    std::unordered_map<std::string, LoadedFile, IgnoringCaseHash, IgnoringCaseEqual> loaded;

    // The selection in the source (selection.hpp). Positions and lengths are in characters.
    std::string docbuf;         // the whole document
    std::int64_t SelStart = 0;  // 1-based in docbuf; 0: not known
    std::int64_t SelLen = 0;
    std::int64_t SelEnd = 0;  // the kept caret, counted from the start of the body's text
    std::string seltext;
    bool multi_cell_selection = false;  // it reaches the end of a table cell
    bool DoRestoreSelection = false;    // with the next DocumentComplete
};

}  // namespace quorrel
