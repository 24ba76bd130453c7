// The project's side files: .prj settings, .stn status and notes, the count of image maps, and
// single keys of the .hhp.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

#include "platform/profile_store.hpp"

namespace quorrel {

struct MainForm;

/// The characters that a status and its notes can have together.
inline constexpr std::size_t kStatusLimit = 2999;
/// Those of the notes, behind a status of one digit and its comma. A line end counts as two.
inline constexpr std::size_t kNotesLimit = kStatusLimit - 2;

/// The project's own ".prj". A value of more than 299 characters is cut on reading.
[[nodiscard]] std::string GetProj(const MainForm& main, std::string_view section,
                                  std::string_view key, std::string_view otherwise);
/// Sets keys of one section. A file that cannot be written loses the values: that is told.
void SetProj(MainForm& main, std::string_view section, const ProfilePairs& pairs);

/// A key of the project file itself, which is never written in this way.
[[nodiscard]] std::string Gethhp(const MainForm& main, std::string_view section,
                                 std::string_view key, std::string_view otherwise);

/// What the status file tells of a topic.
struct StatusEntry {
    std::string status = "0";  // a number in text
    std::string notes;         // lines joined by "||"
};
inline constexpr std::string_view kStatusSection = "status";
/// `value` as the status file has it.
[[nodiscard]] StatusEntry ParseStatus(std::string_view value);

/// Shows the open topic's status and notes in ComboStatus, TextNotes and CommandNote.
void GetStatusNotes(MainForm& main);
/// Stores what these controls hold for the open topic. Topics with the same file name share
/// their entry, also from two folders. False, with a line in the log, where the file cannot be
/// written.
[[nodiscard]] bool SetStatusNotes(MainForm& main);
/// The same before another topic is shown: a failure is told.
void KeepStatusNotes(MainForm& main);

/// The project's file name with ".prj" and without a folder, which stands for the machine's
/// settings folder: projects of one name share their count of image maps.
[[nodiscard]] std::string GetProjFile(std::string_view proj);
[[nodiscard]] std::int64_t ReadImageMapCount(const MainForm& main);
/// A failure is told as one of the settings.
void WriteImageMapCount(MainForm& main, std::int64_t count);

}  // namespace quorrel
