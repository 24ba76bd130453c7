// A main form on real files, with settings of its own.
#pragma once

#include <gtest/gtest.h>

#include <string>
#include <string_view>

#include "app/main_form.hpp"
#include "platform/native_file_system.hpp"
#include "platform/plain_surface.hpp"
#include "platform/silent_services.hpp"
#include "support/scratch_folder.hpp"
#include "support/scripted_screen.hpp"

namespace quorrel::test {

class ProjectFixture : public testing::Test {
  protected:
    ProjectFixture() {
        files.flush_to_disk = false;
        surface.code_page = [this] { return main.texts.CodePageNumber(); };
        main.log.listener = [this](std::string_view line) { log_lines.emplace_back(line); };
    }

    /// Starts the edition and opens the project file of this name in the scratch folder.
    void Open(std::string_view name, std::string_view edition = "html");

    /// The message about a document that was not saved because there is next to nothing in it.
    [[nodiscard]] std::string TooShort(std::string_view file) const;

    ScratchFolder folder;
    NativeFileSystem files;
    PlainSurface surface{files};
    ScriptedScreen screen;
    PlainSource source;
    SilentBrowser browser;
    SilentShell shell;
    MainForm main{{files, screen, surface, source, browser, shell},
                  folder.Windows("settings"),
                  MachineCodePage{}};
    std::vector<std::string> log_lines;
};

}  // namespace quorrel::test
