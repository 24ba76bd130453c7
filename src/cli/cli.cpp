#include "cli/cli.hpp"

#include <cstdlib>
#include <iostream>
#include <string>

#include <CLI/CLI.hpp>

#include "app/main_form.hpp"
#include "app/startup.hpp"
#include "cli/dump.hpp"
#include "cli/routines.hpp"
#include "platform/native_file_system.hpp"
#include "platform/plain_surface.hpp"
#include "platform/silent_services.hpp"
#include "platform/text.hpp"
#include "project/open_project.hpp"
#include "project/save_project.hpp"

namespace quorrel {
namespace {

struct ProjectCall {
    std::string edition = "html";
    std::string project;  // a native path
};

/// Tells why the project cannot be read, or an empty text.
std::string WhyUnreadable(FileSystem& files, const std::string& path) {
    try {
        (void)files.ReadFileHead(path, 1);
        return {};
    } catch (const RuntimeError& error) {
        return error.what();
    }
}

/// Prints what the window would tell in a box.
class CliScreen : public SilentScreen {
  public:
    explicit CliScreen(std::ostream& err) : err_(err) {}
    MessageAnswer ShowMessage(const Message& message) override {
        err_ << "quorrel-cli: " << ReplaceAll(message.text, "\r\n", "\n") << '\n';
        return SilentScreen::ShowMessage(message);
    }

  private:
    std::ostream& err_;
};

/// The program without its window.
class Session {
  public:
    Session(const ProjectCall& call, std::ostream& err) : call_(call), err_(err) {
        surface_.code_page = [this] { return main.texts.CodePageNumber(); };
        main.log.listener = [this](std::string_view line) { err_ << line << '\n'; };
    }

    /// False, after a word about it, where the project cannot be read.
    bool Open() {
        const std::string path = files_.WindowsPath(call_.project);
        if (const std::string why = WhyUnreadable(files_, path); !why.empty()) {
            err_ << "quorrel-cli: " << call_.project << ": " << why << '\n';
            return false;
        }
        LoadSettings(main, call_.edition == "javahelp" ? "" : "html");
        main.project.recent_proj = path;
        OpenProject_Click(main);
        return true;
    }

  private:
    const ProjectCall& call_;
    std::ostream& err_;
    NativeFileSystem files_;
    CliScreen screen_{err_};
    PlainSurface surface_{files_};
    PlainSource source_;
    SilentBrowser browser_;
    SilentShell shell_;

  public:
    MainForm main{{files_, screen_, surface_, source_, browser_, shell_},
                  files_.WindowsPath(NativeSettingsFolder())};
};

int Resave(const ProjectCall& call, bool all, std::ostream& err) {
    Session session(call, err);
    if (!session.Open()) return exit_code::kFailure;
    MainForm& main = session.main;
    if (all) {
        main.contents.toc_dirty = main.keywords.index_dirty = main.outline.doc_dirty = true;
    }
    // What was wrong on opening has been told, and is no failure to save.
    const int errors_before = main.log.Count();
    FileSave_Click(main);
    return main.log.Count() == errors_before ? exit_code::kSuccess : exit_code::kFailure;
}

int Dump(const ProjectCall& call, std::ostream& out, std::ostream& err, AtEnd at_end) {
    Session session(call, err);
    if (!session.Open()) return exit_code::kFailure;
    DumpProject(session.main, out);
    out.flush();
    if (!out) {
        err << "quorrel-cli: the output could not be written\n";
        return exit_code::kFailure;
    }
    if (at_end == AtEnd::kExit) std::_Exit(exit_code::kSuccess);
    return exit_code::kSuccess;
}

}  // namespace

int RunCli(int argc, const char* const* argv, std::istream& in, std::ostream& out,
           std::ostream& err, AtEnd at_end) {
    CLI::App app("Quorrel without a window, for scripts and build servers.", "quorrel-cli");
    app.set_version_flag("--version", "quorrel-cli " QUORREL_VERSION);
    app.require_subcommand(1);

    ProjectCall call;
    app.add_option("--edition", call.edition, "The edition to run: html or javahelp")
        ->check(CLI::IsMember({"html", "javahelp"}))
        ->capture_default_str();

    CLI::App* dump = app.add_subcommand("dump", "Open a project and print it as JSON");
    dump->add_option("PROJECT", call.project, "The project file (.hhp or .hs)")->required();
    CLI::App* resave = app.add_subcommand("resave", "Open a project and save it");
    resave->add_option("PROJECT", call.project, "The project file (.hhp or .hs)")->required();
    bool all = false;
    resave->add_flag("--all", all, "Write contents, index and outline although nothing changed");
    CLI::App* tag_value = app.add_subcommand(
        "tagvalue", "Run TagValue on lines {text, start, attribute, value, mode} of JSON");
    app.add_subcommand(
        "paths", "Run the path and colour routines on lines {fn, args, proj_path, main_path}");
    try {
        app.parse(argc, argv);
    } catch (const CLI::ParseError& error) {
        const int code = app.exit(error, out, err);
        return code == 0 ? exit_code::kSuccess : exit_code::kUsage;
    }
    if (dump->parsed()) return Dump(call, out, err, at_end);
    if (resave->parsed()) return Resave(call, all, err);
    return tag_value->parsed() ? RunTagValueLines(in, out, err) : RunPathLines(in, out, err);
}

}  // namespace quorrel
