// The warning about what a project's files hold and a save would leave out.
#pragma once

#include <functional>
#include <string>
#include <string_view>
#include <vector>

#include "platform/left_behind.hpp"

namespace quorrel {

struct MainForm;

/// The text of the warning, a line for each file; empty where nothing was left behind. `name_of`
/// gives a file's name as the user knows it. `converts`: the files are read to make others of
/// them, and stay.
[[nodiscard]] std::string LeftBehindMessage(
    const std::vector<FileLeftBehind>& files, bool converts,
    const std::function<std::string(std::string_view path)>& name_of);

/// Shows it, once the project has been read.
void TellWhatWasLeftBehind(MainForm& main, bool converts);

}  // namespace quorrel
