// Copies of the author's work, beside the settings, for the case that the program does not come to
// its end: the text of the open topic, the project's lists, and which working copies beside the
// topics belong to which state of their topics. They go when the work is saved or given up.
#pragma once

#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/edit_surface.hpp"
#include "project/unsaved_work_state.hpp"

namespace quorrel {

struct MainForm;

/// Lets UnsavedWork::changed tell of whatever may have to be kept. Once, at start.
void FollowUnsavedWork(MainForm& main);
/// Writes what has changed since the last time. Cheap where nothing has; a failure is noted in the
/// log, and the next call tries again.
void KeepUnsavedWork(MainForm& main);
/// The project's lists are in its files as they are now.
void NoteSavedLists(MainForm& main);
/// Removes the copies: the work is saved, or the author does not want it.
void ForgetUnsavedWork(MainForm& main);

// What another run has left

/// The open topic of that run.
struct KeptTopic {
    std::string when;
    std::string path;
    TextEncoding encoding;
    std::optional<LoadedFile> started_from;  // the topic's file
    DocumentCopy document;
};
struct KeptList {
    std::string name;  // of a ProjectList
    std::string text;
};
struct KeptLists {
    std::string when;
    std::vector<KeptList> lists;
};
[[nodiscard]] std::optional<KeptTopic> ReadKeptTopic(std::string_view record);
[[nodiscard]] std::optional<KeptLists> ReadKeptLists(std::string_view record);
[[nodiscard]] std::vector<KeptCopy> ReadKeptCopies(std::string_view record);

/// Their files below PrivateFolder.
inline constexpr std::string_view kTopicFile = "topic";
inline constexpr std::string_view kListsFile = "lists";
inline constexpr std::string_view kCopiesFile = "copies";

}  // namespace quorrel
