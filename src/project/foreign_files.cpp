#include "project/foreign_files.hpp"

#include <algorithm>

#include "app/main_form.hpp"
#include "platform/text.hpp"
#include "project/open_project.hpp"
#include "project/paths.hpp"

namespace quorrel {
namespace {

bool AskYesNo(MainForm& main, const std::string& text) {
    const Message question = {text, main.settings.APP_NAME, MessageButtons::kYesNo,
                              MessageIcon::kExclamation, MessageAnswer::kNo};
    return main.screen.ShowMessage(question) == MessageAnswer::kYes;
}

/// A line for each file, under its native name.
std::string Lines(const MainForm& main, const std::vector<std::string>& paths) {
    std::string text;
    for (const std::string& path : paths) {
        text.append(kLineEnd).append(main.files.NativePath(path));
    }
    return text;
}

}  // namespace

std::vector<std::string> ProjectFiles(const MainForm& main) {
    const ProjectState& project = main.project;
    std::vector<std::string> paths = {project.proj, project.hhcfile, project.hhkfile,
                                      project.java_map_file, main.outline.doc_outline};
    const std::string base(BaseName(project.proj));
    if (project.help_mode != 1) {
        paths.push_back(base + ".ali");
        if (project.java_map_file.empty()) paths.push_back(base + ".h");
    }
    std::erase(paths, std::string());
    return paths;
}

std::string SentenceOn(Doubt doubt, const std::string& name) {
    switch (doubt) {
        case Doubt::kChanged:
            return name + " has been changed by another program since the project was opened.";
        case Doubt::kNotRead:
            return name + " exists already, and this project was not read from it.";
        case Doubt::kOutside:
            return name + " is not in the folder of this project.";
        case Doubt::kOtherKind:
            return name + " holds something else than this project would write there.";
        case Doubt::kNone:
            break;
    }
    return {};
}

void AskBeforeReplacing(MainForm& main) {
    main.texts.may_replace = [&main](std::string_view path, Doubt doubt) {
        const std::string beside = main.files.NativePath(main.texts.BesideName(path));
        // Without the steps up that a project file may have in it.
        const std::string plain = main.files.WindowsPath(main.files.NativePath(path));
        return AskYesNo(main, SentenceOn(doubt, main.files.NativePath(plain)) +
                                  "\r\n\r\nDo you want to replace it with your version? If not, "
                                  "your version is written to " +
                                  beside + ".");
    };
}

bool MayReplaceByConversion(MainForm& main) {
    if (main.project.proj == main.project.opened_proj) return true;
    std::vector<std::string> others;
    for (const std::string& path : ProjectFiles(main)) {
        if (main.texts.Known().DoubtAbout(path) != Doubt::kNone) others.push_back(path);
    }
    if (others.empty()) return true;
    if (!AskYesNo(main, "Saving makes a JavaHelp project of " +
                            main.files.NativePath(main.project.opened_proj) +
                            ", and there is one already:\r\n" + Lines(main, others) +
                            "\r\n\r\nDo you want to replace these files?")) {
        return false;
    }
    for (const std::string& path : others) main.texts.Known().Approve(path);
    return true;
}

void KeepFilesOfUnreadOnes(MainForm& main) {
    KnownFiles& known = main.texts.Known();
    const ProjectState& project = main.project;
    std::string reason = known.FailureOf(project.proj);
    if (!reason.starts_with(main.files.NativePath(project.proj) + ":")) reason.clear();
    const auto failures = known.Failures();
    if (project.proj != project.opened_proj && !failures.empty()) reason = failures[0].second;
    if (reason.empty()) return;
    for (const std::string& file : ProjectFiles(main)) known.NoteFailure(file, reason);
    const std::string base(BaseName(project.proj));
    for (const char* ending : {".h", ".hhc", ".hhk", ".jhm", "TOC.xml", "Index.xml"}) {
        const std::string file = base + ending;
        if (main.files.FileExists(file)) known.NoteFailure(file, reason);
    }
}

std::string NotReadMessage(MainForm& main) {
    std::vector<std::string> reasons;
    std::vector<std::string> kept;
    for (const auto& [path, reason] : main.texts.Known().Failures()) {
        if (std::find(reasons.begin(), reasons.end(), reason) == reasons.end()) {
            reasons.push_back(reason);
        }
        kept.push_back(path);
    }
    if (reasons.empty()) return {};
    std::string text = "Not all of this project could be read:\r\n";
    for (const std::string& reason : reasons) text.append(kLineEnd).append(reason);
    return text +
           "\r\n\r\nSo that nothing is lost, a save leaves these files as they are. Open the "
           "project again when they can be read:\r\n" +
           Lines(main, kept);
}

void NoticeForeignChanges(MainForm& main) {
    if (main.project.opened_proj.empty() || main.editor.loading) return;
    std::vector<std::string> changed;
    for (const std::string& path : ProjectFiles(main)) {
        try {
            if (main.texts.Known().TakeNewsOfChange(path)) changed.push_back(path);
        } catch (const RuntimeError&) {
            // What cannot be read now is looked at again when it is to be replaced.
        }
    }
    if (changed.empty()) return;
    const bool again = AskYesNo(
        main, "Another program has changed files of this project since they were read:\r\n" +
                  Lines(main, changed) +
                  "\r\n\r\nDo you want to open the project again now? If not, a save asks "
                  "before it replaces them.");
    if (!again) return;
    main.project.recent_proj = main.project.opened_proj;
    OpenProject_Click(main);
}

}  // namespace quorrel
