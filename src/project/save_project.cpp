#include "project/save_project.hpp"

#include <string>
#include <vector>

#include "app/main_form.hpp"
#include "app/recent_projects.hpp"
#include "contents/contents_item_panel.hpp"
#include "editor/document_text.hpp"
#include "editor/foreign_change.hpp"
#include "editor/load_file.hpp"
#include "editor/save_html.hpp"
#include "formats/htmlhelp/hhc.hpp"
#include "formats/htmlhelp/hhk.hpp"
#include "formats/htmlhelp/hhp.hpp"
#include "formats/htmlhelp/map_files.hpp"
#include "formats/javahelp/helpset.hpp"
#include "formats/javahelp/index_xml.hpp"
#include "formats/javahelp/jhm.hpp"
#include "formats/javahelp/toc_xml.hpp"
#include "platform/text.hpp"
#include "platform/unicode.hpp"
#include "project/foreign_files.hpp"
#include "project/paths.hpp"
#include "project/side_files.hpp"
#include "project/topic_properties.hpp"
#include "project/unsaved_work.hpp"
#include "project/working_copy.hpp"
#include "project/xml_form.hpp"

namespace quorrel {
namespace {

constexpr std::uint64_t kNoDocument = 25;  // bytes; an empty page of the surface
constexpr std::string_view kFlagged = "1";
constexpr std::string_view kSaveProject = "MainForm SaveProject: ";

/// A template that is not there is no failure.
void CopySupportFile(MainForm& main, const std::string& name) {
    const std::string source = main.settings.Template_Dir + "\\" + name;
    const std::string target = main.project.proj_path + "\\" + name;
    if (main.files.CopyFile(source, target, false)) return;
    if (main.files.FileExists(target) || !main.files.FileExists(source)) return;
    main.log.Write(kSaveProject, run_time_error::kPathFileAccess,
                   main.files.NativePath(target) + " could not be made");
}

/// Copies what the topics rely on from the templates into the project, never over a file there.
void CopySupportFiles(MainForm& main) {
    if (main.settings.is_javahelp_edition) return CopySupportFile(main, "javahelp.css");
    for (const char* name : {"rtex.gif", "dwnex.gif", "htmlhelp.css", "master.js"}) {
        CopySupportFile(main, name);
    }
}

enum class Promotion {
    kDone,
    kTooShort,  // the copy is no more than an empty page
    kNot,       // the user does not want it, or the log tells what has failed
};

/// Puts a topic's working copy in its place.
Promotion PromoteWorkingCopy(MainForm& main, const std::string& topic) {
    const std::string copy = topic + std::string(kWorkingCopy);
    const auto stamp = main.files.Stamp(copy);
    if (!stamp) {
        main.log.Write(kSaveProject, run_time_error::kFileNotFound,
                       main.files.NativePath(copy) + ", which holds the edits, is gone");
        return Promotion::kNot;
    }
    if (main.files.FileExists(topic)) {
        if (stamp->size <= kNoDocument) return Promotion::kTooShort;
        const auto may = MayOverwrite(main, topic, [&] { return main.files.ReadFile(copy); });
        if (may == Overwrite::kRefused) return Promotion::kNot;
        if (may == Overwrite::kNothing) {
            return main.files.DeleteFile(copy) ? Promotion::kDone : Promotion::kNot;
        }
        if (main.project.backup_all_html) KeepBackup(main.files, topic);
    }
    main.files.FlushFile(copy);
    if (main.files.ReplaceFile(copy, topic)) {
        NoteTopicFile(main, topic);
        return Promotion::kDone;
    }
    main.log.Write(kSaveProject, run_time_error::kPathFileAccess,
                   main.files.NativePath(topic) + " could not be replaced; your version is in " +
                       main.files.NativePath(copy));
    return Promotion::kNot;
}

/// The same for a topic of the table, which loses its flag then.
Promotion PromoteTopic(MainForm& main, ListRow& row) {
    const Promotion result = PromoteWorkingCopy(main, row.SubItems(topic_cell::kFullPath));
    if (result == Promotion::kDone) row.SetSubItem(topic_cell::kModified, "0");
    return result;
}

void TellTooShort(MainForm& main, const std::vector<std::string>& topics) {
    std::string text =
        "A page of " + std::to_string(kNoDocument) +
        " bytes or less counts as empty and does not take the place of a topic. Not saved:\r\n";
    for (const std::string& topic : topics) text += "\r\n" + main.files.NativePath(topic);
    text += "\r\n\r\nThe old text stays there. Yours is kept beside it, in the file with " +
            std::string(kWorkingCopy) + " at the end of its name, and saved when it is longer.";
    main.screen.ShowMessage(
        {text, main.settings.APP_NAME, MessageButtons::kOk, MessageIcon::kExclamation});
}

void PromoteTopics(MainForm& main, const Trap& trap) {
    ListView& topics = main.topics.ListTopics;
    std::vector<std::string> too_short;
    ShownProgress progress(main.window.progress, topics.Count());
    for (int i = 1; i <= topics.Count(); ++i) {
        progress.Next();
        ListRow& row = topics.At(i);
        if (row.SubItems(topic_cell::kModified) != kFlagged) continue;
        trap([&] {
            const bool is_too_short = PromoteTopic(main, row) == Promotion::kTooShort;
            if (is_too_short && HasUnsavedCopy(main, row)) {
                too_short.push_back(row.SubItems(topic_cell::kFullPath));
            }
        });
    }
    if (!too_short.empty()) TellTooShort(main, too_short);
}

/// Whether the surface has the document of `main_path`: it is empty where the file is missing,
/// not to be edited there, or in another program.
bool HasOpenDocument(const MainForm& main) {
    const std::string shown = TopicPath(main.DHTMLEdit1.CurrentDocumentPath());
    return !shown.empty() && EqualsIgnoringCase(shown, TopicPath(main.editor.main_path));
}

/// Of an open page that is no topic: it stays to be saved where its copy does not take its place.
void PromotePage(MainForm& main, const std::string& page) {
    const Promotion result = PromoteWorkingCopy(main, page);
    if (result == Promotion::kTooShort) TellTooShort(main, {page});
    if (result == Promotion::kDone) return;
    main.editor.kept_html.clear();
    main.editor.ActiveDirty = true;
}

/// Nobody has decided about it, so only an edit may replace it.
bool IsCopyOfAnotherRun(MainForm& main, int index) {
    const ListRow& row = main.topics.ListTopics.At(index);
    return row.SubItems(topic_cell::kModified) != kFlagged &&
           SaysMoreThanTopic(main, row.SubItems(topic_cell::kFullPath));
}

/// The open topic goes to its working copy, edited or not. A page that is no topic of the project
/// has no flag to be promoted by, and takes its place at once; it is written only if edited.
void SaveOpenTopic(MainForm& main) {
    if (IsTemplateOpen(main) || !HasOpenDocument(main)) return;
    const int index = main.topics.current_topic_index;
    const bool is_left_alone = index < 1 || IsCopyOfAnotherRun(main, index);
    if (is_left_alone && !IsDocumentEdited(main)) return;
    const std::string& path = main.editor.main_path;
    const bool saved = SaveHTML(main, WorkingCopyOf(path));
    if (index >= 1) {
        main.topics.ListTopics.At(index).SetSubItem(topic_cell::kModified, std::string(kFlagged));
    } else if (saved) {
        PromotePage(main, TopicPath(path));
    }
}

/// A HelpSet without views leaves the name of the index file in the variable of the contents:
/// the index must not overwrite the contents.
void KeepJavaHelpFilesApart(ProjectState& project) {
    const std::string base(BaseName(project.proj));
    if (project.hhkfile.empty()) project.hhkfile = base + "Index.xml";
    if (project.hhcfile == project.hhkfile) project.hhcfile = base + "TOC.xml";
}

void WriteProjectFiles(MainForm& main, const Trap& trap) {
    if (main.project.help_mode == 1) {
        KeepJavaHelpFilesApart(main.project);
        if (!MayReplaceByConversion(main)) {
            return main.log.Write(
                kSaveProject, run_time_error::kFileExists,
                main.files.NativePath(main.project.proj) + " and its files were not replaced");
        }
        trap([&] { OfferXmlForm(main); });
        trap([&] { JavaWriteTOC(main); });
        trap([&] { JavaWriteIndex(main); });
        trap([&] { JavaWriteMapFile(main); });
        trap([&] { JavaWriteHelpSetFile(main); });
    } else {
        trap([&] { HTMLWriteTOC(main); });
        trap([&] { HTMLWriteIndex(main); });
        trap([&] { HTMLWriteMapFile(main); });
        trap([&] { HTMLWriteProjectFile(main); });
    }
    trap([&] { WriteDocOutline(main); });
}

void SaveProject(MainForm& main) {
    const Trap trap(main.log, kSaveProject);
    trap([&] { CommitContentsItem(main); });
    if (main.editor.TopicPropDirty) trap([&] { SaveTopicProperties(main); });
    WaitForSurface(main);
    trap([&] { SaveOpenTopic(main); });
    // A page or a template can be edited without a project.
    if (main.project.proj.empty()) return;
    trap([&] { UpdateRecentList(main); });
    WriteProjectFiles(main, trap);
    PromoteTopics(main, trap);
    trap([&] { main.files.FlushNames(); });
}

}  // namespace

static void TellIncompleteSave(MainForm& main) {
    main.screen.ShowMessage(
        {"Not everything could be saved. The last error was:\r\n\r\n" + main.log.LastLine(),
         main.settings.APP_NAME, MessageButtons::kOk, MessageIcon::kExclamation});
}

bool SetDirty(MainForm& main) {
    if (main.editor.TopicPropDirty) SaveTopicProperties(main);
    std::string path = TopicPath(main.DHTMLEdit1.CurrentDocumentPath());
    main.project.project_dirty = true;
    if (ListRow* row = main.topics.ListTopics.FirstWith(topic_cell::kFullPath, path)) {
        row->SetSubItem(topic_cell::kModified, std::string(kFlagged));
        path += kWorkingCopy;
    } else if (!IsDocumentEdited(main)) {
        return true;
    }
    const bool saved = SaveHTML(main, path);
    main.editor.temp_path = path;
    main.editor.ActiveDirty = true;
    return saved;
}

bool FileSave_Click(MainForm& main) {
    const int errors_before = main.log.Count();
    if (!main.project.proj.empty()) CopySupportFiles(main);
    TakeBackSource(main);
    if (IsTemplateOpen(main) && SaveHTML(main, main.DHTMLEdit1.CurrentDocumentPath())) {
        main.editor.ActiveDirty = false;
    }
    // What is logged is told with the rest.
    if (!main.editor.main_path.empty()) (void)SetStatusNotes(main);
    StatusBar& status = main.window.StatusBar1;
    const std::string shown = status.Panel(1);
    status.SetPanel(1, "Saving Project...");
    {
        const Hourglass hourglass(main.screen);
        SaveProject(main);
    }
    const bool saved = main.log.Count() == errors_before;
    main.project.project_dirty = !saved;
    if (saved) NoteSavedLists(main);
    KeepUnsavedWork(main);
    if (saved) {
        status.SetPanel(1, "Project Saved.");
    } else {
        TellIncompleteSave(main);
    }
    status.SetPanel(1, shown);
    return saved;
}

bool SaveTopic(MainForm& main, ListRow& row) {
    const Trap trap(main.log, kSaveProject);
    Promotion result = Promotion::kNot;
    const int errors_before = main.log.Count();
    trap([&] { result = PromoteTopic(main, row); });
    if (main.log.Count() > errors_before) TellIncompleteSave(main);
    if (result == Promotion::kTooShort) TellTooShort(main, {row.SubItems(topic_cell::kFullPath)});
    return result == Promotion::kDone;
}

void ClearTempFiles(MainForm& main) {
    const Trap trap(main.log, "MainForm ClearTempFiles: ");
    const ListView& topics = main.topics.ListTopics;
    for (int i = 1; i <= topics.Count(); ++i) {
        const ListRow& row = topics.At(i);
        if (row.SubItems(topic_cell::kModified) != kFlagged) continue;
        trap([&] {
            const std::string copy =
                row.SubItems(topic_cell::kFullPath) + std::string(kWorkingCopy);
            if (main.files.FileExists(copy)) main.files.DeleteFile(copy);
        });
    }
    main.project.project_dirty = false;
}

/// Also where no topic is open: contents, index and options can be edited all the same.
static bool HasUnsavedWork(const MainForm& main) {
    const bool is_anything_open =
        !main.project.proj.empty() || !main.editor.main_path.empty() || IsTemplateOpen(main);
    if (!is_anything_open) return false;
    return main.DHTMLEdit1.IsDirty() || main.project.project_dirty || main.editor.ActiveDirty ||
           main.outline.doc_dirty;
}

int PromptSaveChanges(MainForm& main) {
    CommitContentsItem(main);
    if (main.editor.TopicPropDirty) SaveTopicProperties(main);
    if (!HasUnsavedWork(main)) return save_prompt::kNotNeeded;
    switch (main.screen.ShowMessage(
        {"The current project has been modified.\r\n\r\nDo you want to save changes?",
         main.settings.APP_NAME, MessageButtons::kYesNoCancel, MessageIcon::kExclamation})) {
        case MessageAnswer::kYes:
            return FileSave_Click(main) ? save_prompt::kSaved : save_prompt::kCancelled;
        case MessageAnswer::kNo:
            return save_prompt::kDiscarded;
        default:
            return save_prompt::kCancelled;
    }
}

}  // namespace quorrel
