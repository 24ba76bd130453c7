#include "editor/load_file.hpp"

#include "app/main_form.hpp"
#include "contents/node_of_topic.hpp"
#include "editor/document_text.hpp"
#include "editor/foreign_change.hpp"
#include "editor/object_mask.hpp"
#include "editor/save_html.hpp"
#include "platform/meanwhile.hpp"
#include "platform/text.hpp"
#include "project/paths.hpp"
#include "project/recovery.hpp"
#include "project/save_project.hpp"
#include "project/side_files.hpp"
#include "project/topic_properties.hpp"
#include "project/working_copy.hpp"

namespace quorrel {
namespace {

bool ShowsTab(const MainForm& main, int tab) {
    return main.window.TabStrip2.SelectedIndex() == tab;
}

bool HasUnsavedChanges(const MainForm& main) {
    return main.DHTMLEdit1.IsDirty() || main.editor.ActiveDirty;
}

/// A working copy that no flag tells of comes from a run that ended badly, and was not decided
/// about when the project was opened. The user may take it up; otherwise it is put aside, since
/// editing the topic would overwrite it.
void OfferForgottenCopy(MainForm& main, ListRow& row, const std::string& topic) {
    if (!main.unsaved.is_on || !SaysMoreThanTopic(main, topic)) return;
    const Message question = {
        main.files.NativePath(topic) +
            " was edited and not saved when the program ended the last time.\r\n\r\nDo you want "
            "to go on with the edited version?",
        main.settings.APP_NAME, MessageButtons::kYesNo, MessageIcon::kExclamation};
    if (main.screen.ShowMessage(question) == MessageAnswer::kYes) {
        TakeBackTopic(main, row);
        return;
    }
    PutAside(main.files, WorkingCopyOf(topic));
}

std::string FileToLoad(MainForm& main) {
    const std::string topic = TopicPath(main.editor.new_main_path);
    ListRow* row = main.topics.ListTopics.FirstWith(topic_cell::kFullPath, topic);
    if (row != nullptr && row->SubItems(topic_cell::kModified) != "1") {
        OfferForgottenCopy(main, *row, topic);
    }
    const bool has_copy = row != nullptr && row->SubItems(topic_cell::kModified) == "1";
    const std::string copy = WorkingCopyOf(topic);
    const std::string& wanted = has_copy ? copy : topic;
    if (main.files.FileExists(wanted)) return wanted;
    return has_copy ? topic : copy;
}

/// False where the user wants to stay with the template.
bool LeaveTemplate(MainForm& main) {
    switch (
        main.screen.ShowMessage({"Do you want to save this topic template?", main.settings.APP_NAME,
                                 MessageButtons::kYesNoCancel, MessageIcon::kExclamation})) {
        case MessageAnswer::kYes:
            if (!SaveHTML(main, main.DHTMLEdit1.CurrentDocumentPath())) return false;
            break;
        case MessageAnswer::kNo:
            break;
        default:
            return false;
    }
    return true;
}

/// False where the topic's changes could not be put into its working copy.
bool LeaveTopic(MainForm& main) {
    if (main.editor.TopicPropDirty) SaveTopicProperties(main);
    if (!main.editor.main_path.empty()) KeepStatusNotes(main);
    return !HasUnsavedChanges(main) || SetDirty(main);
}

/// The number that a surface gives for the failure: a missing file is none of those that are
/// told to the user.
std::int32_t LoadErrorNumber(const RuntimeError& error) {
    switch (error.Number()) {
        case run_time_error::kFileNotFound:
            return static_cast<std::int32_t>(0x80070002);
        case run_time_error::kPathNotFound:
            return static_cast<std::int32_t>(0x80070003);
        default:
            return error.Number();
    }
}

/// The OBJECT tags of the document that has just been loaded are masked. Its text is that of its
/// file all the same. The surface gives it as it stands there as long as nobody has edited it.
void TakeLoadedText(MainForm& main) {
    EditSurface& surface = main.DHTMLEdit1;
    std::string html = surface.DocumentHTML();
    if (!main.settings.is_javahelp_edition && HasObjectTags(html)) {
        ShowSource(main, html);
        surface.DocumentSaved(surface.CurrentDocumentPath());
        html = surface.DocumentHTML();
    }
    ShowInSource(main, html);
    main.editor.kept_html = std::move(html);
}

std::int32_t LoadDocument(MainForm& main, const std::string& path) {
    std::int32_t failure = 0;
    try {
        main.DHTMLEdit1.LoadDocument(path);
    } catch (const RuntimeError& error) {
        main.DHTMLEdit1.NewDocument(error.what());
        failure = LoadErrorNumber(error);
    }
    TakeLoadedText(main);
    return failure;
}

/// Only positive numbers come to a message: the refusals of a frameset or a server page, and
/// missing files, are negative and leave the surface empty in silence.
void TellLoadFailure(MainForm& main, std::int32_t number, const std::string& path) {
    if (number <= 0) return;
    std::string reason;
    if (number == run_time_error::kInvalidArgument) {
        reason = "Invalid argument";
    } else if (number == run_time_error::kPermissionDenied) {
        reason = "Access denied";
    } else if (LoadDocument(main, path) == 0) {
        WaitForSurface(main);
        return;
    }
    main.screen.ShowMessage({"Error occurred while loading document: " + reason + ".",
                             main.settings.APP_NAME, MessageButtons::kOk, MessageIcon::kCritical});
}

/// Leaves a caret: at the start of the selection, or of a document that has none yet.
void CollapseSelection(MainForm& main) {
    try {
        Document& document = main.DHTMLEdit1.DOM();
        auto range = document.selection().createRange();
        const auto body = range == nullptr ? document.body() : nullptr;
        if (body != nullptr) range = body->createTextRange();
        if (range == nullptr) return;
        range->collapse(true);
        range->Select();
    } catch (const RuntimeError&) {
        // A document that has no caret does not need one.
    }
}

void ShowInBrowser(MainForm& main, const std::string& path) {
    WindowControls& window = main.window;
    main.WebBrowser1.Navigate(path);
    window.Named("DHTMLEdit1").Visible = false;
    window.Named("WebBrowser1").Visible = true;
    window.Named("Source1").Visible = false;
}

void ShowByTab(MainForm& main) {
    switch (main.window.TabStrip2.SelectedIndex()) {
        case right_tab::kNormal:
            return main.DHTMLEdit1.SetFocus();
        case right_tab::kProperties:
            return LoadTopicProperties(main);
        case right_tab::kPreview:
            return ShowInBrowser(main, main.editor.temp_path);
        default:
            return;
    }
}

/// Gives what LoadDocument gives.
std::int32_t BringToSurface(MainForm& main) {
    const std::string& path = main.editor.temp_path;
    const Hourglass hourglass(main.screen);
    // Before it is read: a change that comes between is found out later.
    if (!IsWorkingCopy(path)) NoteTopicFile(main, path);
    const std::int32_t failure = LoadDocument(main, path);
    WaitForSurface(main);
    return failure;
}

void StayWithDocument(MainForm& main) {
    main.editor.new_main_path = main.editor.main_path;
    SyncTopicSelection(main);
    SelectNodeOfTopic(main);
}

/// Takes the document off the surface, where nothing may be that a save would take for the topic
/// in the other program. False where it has to stay.
bool PutDocumentAway(MainForm& main) {
    if (main.editor.TopicPropDirty) SaveTopicProperties(main);
    if (main.DHTMLEdit1.CurrentDocumentPath().empty()) return true;
    if (IsDocumentEdited(main)) {
        const bool left = IsTemplateOpen(main) ? LeaveTemplate(main) : SetDirty(main);
        if (!left) return false;
    }
    CloseDocument(main, "The topic is open in your editor.");
    main.editor.new_topic_template = "False";
    return true;
}

/// The other program reads the topic's file, which lacks the changes that are not saved yet.
void OfferToSaveFirst(MainForm& main, const std::string& topic) {
    ListRow* row = main.topics.ListTopics.FirstWith(topic_cell::kFullPath, topic);
    if (row == nullptr) return;
    if (!HasUnsavedCopy(main, *row)) return ForgetWorkingCopy(main, *row);
    const Message question = {
        main.files.NativePath(topic) +
            " has changes that are not saved yet. Your editor would show the file without "
            "them.\r\n\r\nDo you want to save them first?",
        main.settings.APP_NAME, MessageButtons::kYesNo, MessageIcon::kExclamation};
    if (main.screen.ShowMessage(question) == MessageAnswer::kYes) SaveTopic(main, *row);
}

void OpenInExternalEditor(MainForm& main) {
    EditorState& editor = main.editor;
    if (!PutDocumentAway(main)) return StayWithDocument(main);
    OfferToSaveFirst(main, TopicPath(editor.new_main_path));
    const Trap trap(main.log, "MainForm LoadFile: ");
    trap([&] {
        main.shell.Start(main.settings.ext_editor + " \"" + editor.new_main_path + "\"",
                         WindowStyle::kNormal);
    });
    if (!editor.main_path.empty()) KeepStatusNotes(main);
    editor.main_path = editor.new_main_path;
    GetStatusNotes(main);
    SelectNodeOfTopic(main);
    if (ShowsTab(main, right_tab::kProperties)) return LoadTopicProperties(main);
    SyncTopicSelection(main);
}

/// What LoadFile does once it is sure to run alone.
void LoadFileAlone(MainForm& main) {
    EditorState& editor = main.editor;
    if (ShowsTab(main, right_tab::kReport)) NavigateToReport(main);
    if (main.settings.use_ext_editor) return OpenInExternalEditor(main);
    editor.BlockFormatsLoaded = false;
    TakeBackSource(main);
    const bool left =
        IsTemplateOpen(main) && HasUnsavedChanges(main) ? LeaveTemplate(main) : LeaveTopic(main);
    if (!left) return StayWithDocument(main);
    editor.new_topic_template = "False";
    editor.temp_path = FileToLoad(main);
    editor.main_path = editor.new_main_path;
    const std::int32_t failure = BringToSurface(main);
    SyncTopicSelection(main);
    SelectNodeOfTopic(main);
    editor.ActiveDirty = true;
    editor.TopicPropDirty = false;
    TellLoadFailure(main, failure, editor.temp_path);
    if (!main.DHTMLEdit1.Busy()) CollapseSelection(main);
    GetStatusNotes(main);
    ShowByTab(main);
}

}  // namespace

bool IsTemplateOpen(const MainForm& main) {
    return main.editor.new_topic_template == "True";
}

void NavigateToReport(MainForm& main) {
    const std::string& proj = main.project.proj;
    const std::string place = MakeRelPathRel(main.editor.new_main_path, proj);
    main.WebBrowser1.Navigate(std::string(BeforeLast(proj, '\\', {})) + "\\report\\report.htm#" +
                              place);
}

void LoadFile(MainForm& main) {
    if (main.editor.loading) return;
    const Meanwhile loading(main.editor.loading, true);
    LoadFileAlone(main);
}

}  // namespace quorrel
