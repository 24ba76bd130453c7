#include "cli/cli.hpp"

#include <cstdlib>
#include <iostream>
#include <string>

#include <CLI/CLI.hpp>

#include "cli/convert.hpp"
#include "cli/dump.hpp"
#include "cli/routines.hpp"
#include "cli/session.hpp"
#include "platform/failure.hpp"
#include "platform/native_file_system.hpp"

namespace quorrel {
namespace {

int Resave(const ProjectCall& call, bool all, std::ostream& err) {
    NativeFileSystem files;
    Session session(call, files, err);
    if (!session.Open()) return exit_code::kFailure;
    MainForm& main = session.main;
    if (all) {
        main.contents.toc_dirty = main.keywords.index_dirty = main.outline.doc_dirty = true;
    }
    return session.Save() ? exit_code::kSuccess : exit_code::kFailure;
}

int Dump(const ProjectCall& call, std::ostream& out, std::ostream& err, AtEnd at_end) {
    NativeFileSystem files;
    Session session(call, files, err);
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
    // A path may begin with "/" on every system.
    app.allow_windows_style_options(false);

    ProjectCall call;
    app.add_option("--edition", call.edition,
                   "The edition to run: html or javahelp; without it the one of the project")
        ->check(CLI::IsMember({"html", "javahelp"}));

    CLI::App* dump = app.add_subcommand("dump", "Open a project and print it as JSON");
    dump->add_option("PROJECT", call.project, "The project file (.hhp or .hs)")->required();
    CLI::App* resave = app.add_subcommand("resave", "Open a project and save it");
    resave->add_option("PROJECT", call.project, "The project file (.hhp or .hs)")->required();
    bool all = false;
    resave->add_flag("--all", all, "Write contents, index and outline although nothing changed");
    CLI::App* convert = app.add_subcommand(
        "convert", "Make a JavaHelp project beside an HTML Help project and list its files");
    convert->add_option("PROJECT", call.project, "The project file (.hhp)")->required();
    convert->add_flag("--force", call.force, "Replace a JavaHelp project that is there already");
    resave->add_flag("--force", call.force,
                     "Replace also files that are not the project's own or lie elsewhere");
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
    try {
        if (dump->parsed()) return Dump(call, out, err, at_end);
        if (resave->parsed()) return Resave(call, all, err);
        if (convert->parsed()) return Convert(call, out, err);
        return tag_value->parsed() ? RunTagValueLines(in, out, err) : RunPathLines(in, out, err);
    } catch (const RuntimeError& error) {
        err << "quorrel-cli: " << error.what() << '\n';
    } catch (const std::bad_alloc&) {
        err << "quorrel-cli: Out of memory\n";
    }
    return exit_code::kFailure;
}

}  // namespace quorrel
