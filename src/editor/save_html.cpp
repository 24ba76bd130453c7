#include "editor/save_html.hpp"

#include <algorithm>

#include "app/main_form.hpp"
#include "editor/document_text.hpp"
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

/// The document as it goes to a file: links relative to `path`, OBJECT tags as they are.
std::string TextForFile(const std::string& html, std::string_view path) {
    return UnmaskObjects(RepairLocalLinks(html, path));
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

/// The document in another file, for what the user wants with it.
void WriteCopy(MainForm& main, const std::string& target) {
    WaitForSurface(main);
    TakeBackSource(main);
    const EditSurface& surface = main.DHTMLEdit1;
    const std::string text = TextForFile(surface.DocumentHTML(), target);
    WriteDocument(main, target, TopicBytes(text, surface.Encoding()));
}

std::string ChooseCopy(MainForm& main, const std::string& document) {
    FileDialog dialog;
    dialog.title = "Save HTML File As";
    dialog.filter = "HTML Files (*.htm;*.html)|*.htm;*.html";
    dialog.folder = BeforeLast(document, '\\', {});
    dialog.save = true;
    return main.screen.ChooseFile(dialog);
}

void SaveCopy(MainForm& main, bool& ok) {
    const std::string document = TopicPath(main.DHTMLEdit1.CurrentDocumentPath());
    if (document.empty()) return;
    const std::string target = ChooseCopy(main, document);
    if (target.empty()) return;
    try {
        WriteCopy(main, target);
        // A topic that has been replaced as a whole has no changes left: the next save would put
        // them in the place of the new text.
        if (ListRow* row = main.topics.ListTopics.FirstWith(topic_cell::kFullPath, target)) {
            ForgetWorkingCopy(main, *row);
        }
        main.window.StatusBar1.SetPanel(1, "A copy is in " + main.files.NativePath(target) +
                                               "; you go on with " +
                                               std::string(AfterLast(document, '\\')));
    } catch (const RuntimeError& error) {
        ok = false;
        TellSaveFailure(main, error.Number());
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
            TakeBackSource(main);
            std::string html = surface.DocumentHTML();
            const std::string text = TextForFile(html, main.editor.main_path);
            // Not under the author's hands.
            if (!main.editor.SourceViewActive) ShowInSource(main, text);
            WriteDocument(main, std::string(path), TopicBytes(text, surface.Encoding()));
            // Not before the file is there: a failure must leave the document dirty.
            surface.DocumentSaved(path);
            main.editor.kept_html = std::move(html);
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
    if (save_as) return SaveCopy(main, ok);
    const std::string path = main.DHTMLEdit1.CurrentDocumentPath();
    if (!path.empty()) ok = SaveHTML(main, WorkingCopyOf(path));
}

}  // namespace quorrel
