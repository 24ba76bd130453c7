// One run of the program on a project on disk, with settings and templates of the test's own.
#pragma once

#include <string>
#include <string_view>

#include "app/main_form.hpp"
#include "platform/plain_surface.hpp"
#include "platform/silent_services.hpp"
#include "support/faulty_file_system.hpp"
#include "support/scratch_folder.hpp"

namespace quorrel::test {

class ProjectSession {
  public:
    /// Opens the project of this name in the folder; `edition` is "html" or empty for JavaHelp.
    ProjectSession(const ScratchFolder& folder, std::string_view project, std::string_view edition);

    /// The text of the topic, which becomes the open one.
    std::string Open(const std::string& path);
    /// Saves as if every part of the project had been changed.
    void SaveAll();

    FaultyFileSystem files;
    SilentScreen screen;
    PlainSurface surface{files};
    PlainSource source;
    SilentBrowser browser;
    SilentShell shell;
    MainForm main;
};

}  // namespace quorrel::test
