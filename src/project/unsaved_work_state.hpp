// What is kept of the author's work until it is saved.
#pragma once

#include <cstddef>
#include <map>
#include <string>
#include <vector>

#include "editor/editor_state.hpp"
#include "platform/controls/signal.hpp"

namespace quorrel {

/// A working copy beside a topic, for the next run if this one ends badly.
struct KnownCopy {
    FileStamp stamp;   // of the copy
    std::string when;  // it was made
};

/// A working copy that an earlier run left, and the state of the topic's file that it began with.
struct KeptCopy {
    std::string path;  // of the topic
    std::string when;
    LoadedFile started_from;
};

struct UnsavedWork {
    /// Copies are kept, and those of a run that ended badly are offered. Not so in a run that
    /// nobody watches, or that has no right to change the project.
    bool is_on = true;
    bool is_open = false;  // the project is read: before that its lists say nothing
    /// There may be something new to keep (KeepUnsavedWork).
    Signal<> changed;

    std::map<std::string, std::size_t>
        written;  // the files of the run's own: hashes of their bytes
    std::map<std::string, std::size_t> saved_lists;  // hashes of the lists as the project has them
    std::map<std::string, KnownCopy> copies;         // by the topics' paths
    std::map<std::string, KeptCopy> left_copies;     // by the topics' paths
    bool lists_changed = false;
    std::vector<std::string> taken_lists;  // names of lists of an earlier run
    bool taken_back = false;  // something of an earlier run, so the project is to be saved
};

}  // namespace quorrel
