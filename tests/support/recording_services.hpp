// Services that write down what they are asked to do.
#pragma once

#include <string>
#include <utility>
#include <vector>

#include "platform/failure.hpp"
#include "platform/plain_surface.hpp"
#include "platform/silent_services.hpp"
#include "support/project_fixture.hpp"

namespace quorrel::test {

using Calls = std::vector<std::string>;

/// The commands' numbers, with "?" behind where the user may be asked, and their values.
class RecordingSurface : public PlainSurface {
  public:
    RecordingSurface(FileSystem& files, Calls& calls) : PlainSurface(files), calls_(calls) {}

    /// What QueryStatus answers to all but the names of the block formats.
    int status = command_status::kEnabled;

    using EditSurface::ExecCommand;
    CommandValue ExecCommand(int command, CommandOption option,
                             const CommandValue& value) override {
        using namespace surface_command;
        if (command == DECMD_GETBLOCKFMTNAMES || command == DECMD_GETBLOCKFMT) {
            return PlainSurface::ExecCommand(command, option, value);
        }
        std::string call = std::to_string(command);
        if (option == CommandOption::kPromptUser) call += "?";
        if (const auto* text = std::get_if<std::string>(&value)) call += "=" + *text;
        calls_.push_back(std::move(call));
        return {};
    }
    int QueryStatus(int) override { return status; }
    void Print() override { calls_.emplace_back("surface prints"); }
    void SetFocus() override { calls_.emplace_back("surface focus"); }

  private:
    Calls& calls_;
};

class RecordingSource : public PlainSource {
  public:
    explicit RecordingSource(Calls& calls) : calls_(calls) {}
    void SetFocus() override { calls_.emplace_back("source focus"); }
    void Cut() override { calls_.emplace_back("source cut"); }
    void Copy() override { calls_.emplace_back("source copy"); }
    void Paste() override { calls_.emplace_back("source paste"); }
    void Undo() override { calls_.emplace_back("source undo"); }
    void Redo() override { calls_.emplace_back("source redo"); }
    void SelectAll() override { calls_.emplace_back("source select all"); }
    void Find() override { calls_.emplace_back("source find"); }
    void Print() override { calls_.emplace_back("source prints"); }

  private:
    Calls& calls_;
};

class RecordingBrowser : public WebBrowser {
  public:
    explicit RecordingBrowser(Calls& calls) : calls_(calls) {}
    void Navigate(std::string_view target) override {
        calls_.push_back("browse " + std::string(target));
    }
    void GoBack() override { calls_.emplace_back("browser back"); }
    void Refresh() override { calls_.emplace_back("browser refresh"); }
    void Stop() override { calls_.emplace_back("browser stop"); }

  private:
    Calls& calls_;
};

class RecordingShell : public Shell {
  public:
    explicit RecordingShell(Calls& calls) : calls_(calls) {}
    bool fails = false;
    void Start(std::string_view command_line, WindowStyle) override {
        if (fails) throw RuntimeError(run_time_error::kFileNotFound);
        calls_.push_back("shell " + std::string(command_line));
    }

  private:
    Calls& calls_;
};

/// A main form on these services, started in the HTML Help edition, with a project of two topics
/// that Open opens.
class RecordingFixture : public testing::Test {
  protected:
    RecordingFixture();

    void OpenGuide();
    void GoTo(int tab) { main.window.TabStrip2.SelectedIndex = tab; }
    /// What has been called since the last time.
    Calls TakeCalls() { return std::exchange(calls, {}); }

    Calls calls;
    ScratchFolder folder;
    NativeFileSystem files;
    RecordingSurface surface{files, calls};
    ScriptedScreen screen;
    RecordingSource source{calls};
    RecordingBrowser browser{calls};
    RecordingShell shell{calls};
    MainForm main{{files, screen, surface, source, browser, shell},
                  folder.Windows("settings"),
                  MachineCodePage{}};
};

}  // namespace quorrel::test
