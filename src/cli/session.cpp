#include "cli/session.hpp"

#include <ostream>

#include "app/startup.hpp"
#include "platform/installation.hpp"
#include "platform/text.hpp"
#include "project/foreign_files.hpp"
#include "project/open_project.hpp"
#include "project/save_project.hpp"

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

}  // namespace

MessageAnswer CliScreen::ShowMessage(const Message& message) {
    const MessageAnswer answer = SilentScreen::ShowMessage(message);
    err_ << "quorrel-cli: " << ReplaceAll(message.text, "\r\n", "\n")
         << (answer == MessageAnswer::kNo ? " No.\n" : "\n");
    return answer;
}

Session::Session(const ProjectCall& call, NativeFileSystem& files, std::ostream& err)
    : call_(call),
      files_(files),
      err_(err),
      main({files_, screen_, surface_, source_, browser_, shell_},
           files_.WindowsPath(NativeSettingsFolder())) {
    surface_.code_page = [this] { return main.texts.CodePageNumber(); };
    // Nobody is there to decide about work that the window keeps.
    main.unsaved.is_on = false;
    main.log.listener = [this](std::string_view line) { err_ << line << '\n'; };
}

bool Session::Open() {
    const std::string path = files_.WindowsPath(call_.project);
    if (const std::string why = WhyUnreadable(files_, path); !why.empty()) {
        err_ << "quorrel-cli: " << call_.project << ": " << why << '\n';
        return false;
    }
    const bool is_javahelp = IsJavaHelpProject(path);
    if (is_javahelp && call_.edition == "html") {
        err_ << "quorrel-cli: " << call_.project
             << ": a JavaHelp project (.hs) is not for the edition html\n";
        return false;
    }
    main.settings.found_main_dir =
        InstallationOf(files_, files_.WindowsPath(NativeProgramFolder()));
    LoadSettings(main, is_javahelp || call_.edition == "javahelp" ? "" : "html");
    main.texts.may_replace = [this](std::string_view file, Doubt doubt) {
        err_ << "quorrel-cli: " << SentenceOn(doubt, files_.NativePath(file))
             << " --force replaces it.\n";
        return false;
    };
    main.project.recent_proj = path;
    OpenProject_Click(main);
    return true;
}

bool Session::Save() {
    if (call_.force) {
        for (const std::string& file : ProjectFiles(main)) main.texts.Known().Approve(file);
    }
    return FileSave_Click(main);
}

}  // namespace quorrel
