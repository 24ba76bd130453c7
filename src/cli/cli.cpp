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
#include "project/open_project.hpp"

namespace quorrel {
namespace {

/// Tells why the project cannot be read, or an empty text.
std::string WhyUnreadable(FileSystem& files, const std::string& path) {
    try {
        (void)files.ReadFileHead(path, 1);
        return {};
    } catch (const RuntimeError& error) {
        return error.what();
    }
}

int Dump(bool javahelp, const std::string& native_path, std::ostream& out, std::ostream& err,
         AtEnd at_end) {
    NativeFileSystem files;
    const std::string path = files.WindowsPath(native_path);
    if (const std::string why = WhyUnreadable(files, path); !why.empty()) {
        err << "quorrel-cli: " << native_path << ": " << why << '\n';
        return exit_code::kFailure;
    }
    SilentScreen screen;
    PlainSurface surface(files);
    PlainSource source;
    SilentBrowser browser;
    SilentShell shell;
    MainForm main({files, screen, surface, source, browser, shell},
                  files.WindowsPath(NativeSettingsFolder()));
    surface.code_page = [&] { return main.texts.CodePageNumber(); };
    main.log.listener = [&](std::string_view line) { err << line << '\n'; };
    LoadSettings(main, javahelp ? "" : "html");
    main.project.recent_proj = path;
    OpenProject_Click(main);
    DumpProject(main, out);
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

    std::string edition = "html";
    app.add_option("--edition", edition, "The edition to run: html or javahelp")
        ->check(CLI::IsMember({"html", "javahelp"}))
        ->capture_default_str();

    std::string project;
    CLI::App* dump = app.add_subcommand("dump", "Open a project and print it as JSON");
    dump->add_option("PROJECT", project, "The project file (.hhp or .hs)")->required();
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
    if (dump->parsed()) return Dump(edition == "javahelp", project, out, err, at_end);
    return tag_value->parsed() ? RunTagValueLines(in, out, err) : RunPathLines(in, out, err);
}

}  // namespace quorrel
