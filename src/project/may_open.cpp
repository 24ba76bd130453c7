#include "project/may_open.hpp"

#include "app/main_form.hpp"
#include "app/recent_projects.hpp"
#include "project/open_project.hpp"

namespace quorrel {
namespace {

void Tell(MainForm& main, const std::string& text) {
    main.screen.ShowMessage(
        {text, main.settings.APP_NAME, MessageButtons::kOk, MessageIcon::kExclamation});
}

bool IsReadable(MainForm& main, const std::string& proj) {
    try {
        (void)main.files.ReadFileHead(proj, 1);
        return true;
    } catch (const RuntimeError& error) {
        Tell(main, main.files.NativePath(proj) + " cannot be opened: " + error.what() + ".");
        return false;
    }
}

/// Starts the program in the JavaHelp edition. It offers the project first among the recent ones.
void StartOtherEdition(MainForm& main, const std::string& proj) {
    PutFirstInRecentList(main, true, proj);
    try {
        main.shell.Start("\"" + main.settings.program + "\"", WindowStyle::kNormal);
    } catch (const RuntimeError& error) {
        Tell(main, "The JavaHelp edition cannot be started: " + std::string(error.what()) + ".");
    }
}

/// A HelpSet is nothing that the HTML Help edition could save.
bool IsOfThisEdition(MainForm& main, const std::string& proj) {
    if (main.settings.is_javahelp_edition || !IsJavaHelpProject(proj)) return true;
    const std::string what =
        main.files.NativePath(proj) + " is a JavaHelp project, and this is the HTML Help edition.";
    if (main.settings.program.empty()) {
        Tell(main, what);
        return false;
    }
    const Message question = {what + "\r\n\r\nDo you want to start the JavaHelp edition? It offers "
                                     "this project first.",
                              main.settings.APP_NAME, MessageButtons::kYesNo,
                              MessageIcon::kQuestion};
    if (main.screen.ShowMessage(question) == MessageAnswer::kYes) StartOtherEdition(main, proj);
    return false;
}

}  // namespace

bool MayOpen(MainForm& main, const std::string& proj) {
    return IsReadable(main, proj) && IsOfThisEdition(main, proj);
}

}  // namespace quorrel
