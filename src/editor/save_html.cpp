#include "editor/save_html.hpp"

#include <algorithm>

#include "app/main_form.hpp"
#include "editor/foreign_change.hpp"
#include "editor/object_mask.hpp"
#include "platform/text.hpp"
#include "platform/topic_encoding.hpp"
#include "project/paths.hpp"
#include "project/side_files.hpp"
#include "project/working_copy.hpp"

namespace quorrel {
namespace {

constexpr std::string_view kLocalLink = "=\"file://";

std::string_view ReasonOf(int number) {
    using namespace run_time_error;
    switch (number) {
        case kDiskFull:
            return "Disk is full";
        case kPathNotFound:
            return "Path not found";
        case kInvalidArgument:
            return "Invalid argument";
        case kPermissionDenied:
        case kPathFileAccess:
            return "Access denied";
        default:
            return "Unknown error";
    }
}

/// A working copy is ours alone; any other file may have been changed by another program.
void WriteDocument(MainForm& main, const std::string& path, const std::string& bytes) {
    if (IsWorkingCopy(path)) return WriteWhole(main.files, path, bytes);
    switch (MayOverwrite(main, path, [&] { return bytes; })) {
        case Overwrite::kAllowed:
            WriteWhole(main.files, path, bytes);
            return NoteTopicFile(main, path);
        case Overwrite::kNothing:
            return;
        case Overwrite::kRefused:
            return WriteWhole(main.files, WorkingCopyOf(path), bytes);
    }
}

}  // namespace

void WaitForSurface(MainForm& main) {
    while (main.DHTMLEdit1.Busy()) main.screen.DoEvents();
}

std::string RepairLocalLinks(std::string html, std::string_view main_path) {
    std::size_t at = html.find(kLocalLink);
    while (at != npos) {
        const std::size_t start = at + 2;  // of the scheme, which is the 1-based place behind `="`
        const std::size_t close = html.find('>', start);
        if (close == npos) break;
        const std::string_view value = std::string_view(html).substr(start, close - start);
        const std::size_t quote = std::min(value.find('"'), value.size());
        std::string link = ReplaceAll(value.substr(0, quote), "file://", "");
        link = ReplaceAll(ReplaceAll(link, "|", ":"), "/", "\\");
        link = ReplaceAll(MakeRelPathRel(link, main_path), "\\", "/");
        link += ReplaceAll(value.substr(quote), "\\", "/");
        html.replace(start, close - start, link);
        constexpr std::size_t kSearchOn = 5;
        at = html.find(kLocalLink, std::min(start + kSearchOn, html.size()));
    }
    return html;
}

void TellSaveFailure(MainForm& main, int number) {
    main.screen.ShowMessage(
        {"Error occurred while saving document: " + std::string(ReasonOf(number)) + ".",
         main.settings.APP_NAME, MessageButtons::kOk, MessageIcon::kCritical});
}

bool SaveHTML(MainForm& main, std::string_view path) {
    if (path.empty()) return true;
    const Trap trap(main.log, "MainForm SaveHTML: ");
    WaitForSurface(main);
    EditSurface& surface = main.DHTMLEdit1;
    int failure = 0;
    const bool written = trap([&] {
        try {
            std::string text = RepairLocalLinks(surface.DocumentHTML(), main.editor.main_path);
            text = UnmaskObjects(text);
            main.Source1.SetText(text);
            WriteDocument(main, std::string(path), TopicBytes(text, surface.Encoding()));
            // Not before the file is there: a failure must leave the document dirty.
            surface.DocumentSaved(path);
        } catch (const RuntimeError& error) {
            failure = error.Number();
            throw;
        }
    });
    if (!written) {
        main.editor.ActiveDirty = true;
        TellSaveFailure(main, failure);
        return false;
    }
    main.editor.ActiveDirty = false;
    WriteImageMapCount(main, main.project.lngMapCount);
    return true;
}

void SaveDocument(MainForm& main, bool save_as, bool& ok) {
    ok = true;
    EditSurface& surface = main.DHTMLEdit1;
    const std::string path = surface.CurrentDocumentPath();
    std::string target;
    if (!save_as) {
        if (path.empty()) return;
        target = WorkingCopyOf(path);
    } else {
        FileDialog dialog;
        dialog.title = "Save HTML File As";
        dialog.filter = "HTML Files (*.htm;*.html)|*.htm;*.html";
        dialog.folder = BeforeLast(path, '\\', {});
        dialog.save = true;
        target = main.screen.ChooseFile(dialog);
        if (target.empty()) return;
    }
    try {
        surface.SaveDocument(target);
    } catch (const RuntimeError& error) {
        ok = false;
        TellSaveFailure(main, error.Number());
    }
}

void ShowSource(MainForm& main, std::string_view html) {
    EditSurface& surface = main.DHTMLEdit1;
    const std::string base = surface.BaseURL();
    const bool mask = !main.settings.is_javahelp_edition && HasObjectTags(html);
    surface.SetDocumentHTML(mask ? MaskObjects(html) : std::string(html));
    surface.SetBaseURL(base);
}

void SetHTML(MainForm& main) {
    constexpr std::size_t kShortest = 20;
    const std::string text = main.Source1.Text();
    if (CountCharacters(text) >= kShortest) ShowSource(main, text);
}

}  // namespace quorrel
