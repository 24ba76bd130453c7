// The program without its window, for one command.
#pragma once

#include <iosfwd>
#include <string>

#include "app/main_form.hpp"
#include "platform/native_file_system.hpp"
#include "platform/plain_surface.hpp"
#include "platform/silent_services.hpp"

namespace quorrel {

struct ProjectCall {
    std::string edition;  // "html" or "javahelp"; empty: by the ending of the project
    std::string project;  // a native path
    bool force = false;   // replace files about which there is a doubt
};

/// Prints what the window would tell in a box.
class CliScreen : public SilentScreen {
  public:
    explicit CliScreen(std::ostream& err) : err_(err) {}
    MessageAnswer ShowMessage(const Message& message) override;

  private:
    std::ostream& err_;
};

/// Both arguments must outlive it. Each line of the log goes to `err`.
class Session {
  public:
    Session(const ProjectCall& call, NativeFileSystem& files, std::ostream& err);

    /// False, after a word about it, where the project cannot be read.
    bool Open();
    /// False where something could not be saved. What was wrong on opening has been told, and is
    /// no failure to save.
    bool Save();

  private:
    const ProjectCall& call_;
    NativeFileSystem& files_;
    std::ostream& err_;
    CliScreen screen_{err_};
    PlainSurface surface_{files_};
    PlainSource source_;
    SilentBrowser browser_;
    SilentShell shell_;

  public:
    MainForm main;
};

}  // namespace quorrel
