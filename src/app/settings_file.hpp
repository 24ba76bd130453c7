// Single keys of the settings file of the machine.
#pragma once

#include <string>
#include <string_view>

#include "platform/profile_store.hpp"

namespace quorrel {

struct MainForm;

/// At most 299 characters of the value, or of `otherwise`.
[[nodiscard]] std::string GetIni(const MainForm& main, std::string_view section,
                                 std::string_view key, std::string_view otherwise);
/// Sets keys of one section. A file that cannot be written loses the values, which is logged and,
/// once in a run, told.
void SetIni(MainForm& main, std::string_view section, const ProfilePairs& pairs);

/// Logs that the settings file `file` could not be written, and tells it once in a run.
void TellSettingsNotKept(MainForm& main, std::string_view file);

}  // namespace quorrel
