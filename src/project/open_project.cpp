#include "project/open_project.hpp"

#include "app/main_form.hpp"
#include "app/tool_bar.hpp"
#include "contents/node_data.hpp"
#include "contents/open_contents_item.hpp"
#include "editor/document_text.hpp"
#include "formats/htmlhelp/hhc.hpp"
#include "formats/htmlhelp/hhk.hpp"
#include "formats/htmlhelp/hhp.hpp"
#include "formats/htmlhelp/hhp_left_behind.hpp"
#include "formats/htmlhelp/map_files.hpp"
#include "formats/javahelp/helpset.hpp"
#include "platform/text.hpp"
#include "project/foreign_files.hpp"
#include "project/left_behind_message.hpp"
#include "project/may_open.hpp"
#include "project/paths.hpp"
#include "project/recovery.hpp"
#include "project/save_project.hpp"
#include "project/side_files.hpp"
#include "project/unsaved_work.hpp"
#include "project/verify_map_ids.hpp"
#include "project/xml_form.hpp"

namespace quorrel {
namespace {

constexpr std::string_view kHtmlHelpFilter = "HTML Help Project Files (*.hhp)|*.hhp";
constexpr std::string_view kBothFilters =
    "JavaHelp HelpSet Files (*.hs)|*.hs|MS HTML Help Project Files (*.hhp)|*.hhp";

std::string ChooseProject(MainForm& main) {
    FileDialog dialog;
    dialog.title = "Open Project";
    dialog.filter = main.settings.is_javahelp_edition ? kBothFilters : kHtmlHelpFilter;
    return main.screen.ChooseFile(dialog);
}

void ReadProjectSettings(MainForm& main) {
    ProjectState& project = main.project;
    main.texts.StartProject(BeforeLast(project.proj, '\\', {}));
    main.texts.UseLanguage(Gethhp(main, "OPTIONS", "Language", ""));
    ReadXmlForm(main);
    project.Pages_SubDir = GetProj(main, "Settings", "html", "");
    project.Images_Subdir = GetProj(main, "Settings", "images", "");
    project.last_file_path = GetProj(main, "Settings", "last_path", "");
    // proj_path is still the folder of the project before.
    if (!project.last_file_path.empty() && !main.files.FolderExists(project.last_file_path)) {
        project.last_file_path = project.proj_path;
    }
}

void DeriveFileNames(MainForm& main) {
    ProjectState& project = main.project;
    const std::string base(BaseName(project.proj));
    if (Contains(project.proj, ".")) {
        main.outline.doc_outline = base + ".out";
        project.status_file = base + ".stn";
        if (project.help_mode == 1) {
            // The index file's name lands here too; the HelpSet gives both.
            project.hhcfile = base + "Index.xml";
        } else {
            project.hhcfile = base + ".hhc";
            project.hhkfile = base + ".hhk";
        }
    }
    project.proj_path = BeforeLast(project.proj, '\\', {});
    if (project.last_file_path.empty()) {
        project.last_file_path = project.proj_path + "\\" + project.Pages_SubDir;
    }
}

std::string SitemapFile(const MainForm& main, std::string_view key, std::string_view ending) {
    const std::string& proj = main.project.proj;
    const std::string value = Gethhp(main, "OPTIONS", key, "");
    return value.empty() ? std::string(BaseName(proj)).append(ending)
                         : MakeFullPathRel(value, proj);
}

/// The contents of a project just converted have a map id for each location.
void TakeFirstLocationAsDefault(MainForm& main) {
    try {
        const TreeNode& node = FirstNodeWithLocation(main.contents.Tree1);
        main.project.project_def_topic = UnpackNodeData(node.Tag).target;
    } catch (const RuntimeError&) {
        // There is none: the log tells when the first topic cannot be opened.
    }
}

/// Makes a JavaHelp project of an HTML Help project that has just been read.
void ConvertInMemory(MainForm& main) {
    ProjectState& project = main.project;
    const std::string base(BaseName(project.proj));
    project.help_mode = 1;
    project.proj = base + ".hs";
    project.hhcfile = base + "TOC.xml";
    project.hhkfile = base + "Index.xml";
    project.java_map_file = base + ".jhm";
    project.project_def_topic.clear();
    TakeFirstLocationAsDefault(main);
    main.contents.toc_dirty = true;
    main.keywords.index_dirty = true;
    if (project.xml_form == XmlForm::kEscaped) TakeReferencesAsCharacters(main);
}

void CopyArrowPictures(MainForm& main) {
    for (const std::string_view name : {"\\rtex.gif", "\\dwnex.gif"}) {
        const std::string target = main.project.proj_path + std::string(name);
        main.files.CopyFile(main.settings.Template_Dir + std::string(name), target, false);
    }
}

void ReadHtmlHelpProject(MainForm& main, const Trap& trap) {
    ProjectState& project = main.project;
    main.window.StatusBar1.SetPanel(1, "Reading Project File...");
    project.hhcfile = SitemapFile(main, "Contents file", ".hhc");
    project.hhkfile = SitemapFile(main, "Index file", ".hhk");
    project.project_title = Gethhp(main, "OPTIONS", "Title", "");
    project.project_def_topic = Gethhp(main, "OPTIONS", "Default Topic", "");
    rebuildindex_Click(main);
    ReadHTMLMapFiles(main);
    verify_map_ids(main.topics, project.Alias_Prefix);
    NoteLeftBehindInProject(main);
    ReadTOC(main);
    ReadIndex(main);
    if (main.files.FileExists(main.outline.doc_outline)) ReadDocOutline(main);
    main.contents.toc_dirty = false;
    main.keywords.index_dirty = false;
    main.outline.doc_dirty = false;
    KeepFilesOfUnreadOnes(main);
    if (main.settings.is_javahelp_edition) {
        ConvertInMemory(main);
        KeepFilesOfUnreadOnes(main);
    }
    main.window.StatusBar1.SetPanel(1, "");
    OfferUnsavedWork(main);
    if (main.contents.Tree1.Count() > 0) trap([&] { OpenFirstContentsItem(main); });
    if (project.project_title.empty()) project.project_title = "Untitled";
    UpdateCaption(main);
    if (!main.settings.is_javahelp_edition) CopyArrowPictures(main);
    main.screen.DoEvents();
    project.project_dirty = false;
    main.editor.ActiveDirty = false;
}

void ReadJavaHelpProject(MainForm& main) {
    ReadJavaHelpSet(main);
    KeepFilesOfUnreadOnes(main);
    if (main.project.project_title.empty()) main.project.project_title = "Untitled";
    UpdateCaption(main);
    main.editor.ActiveDirty = false;
}

}  // namespace

void ClearProject(MainForm& main) {
    main.contents.Tree1.Clear();
    main.outline.TreeDoc.Clear();
    main.outline.doc_dirty = false;
    main.topics.ListTopics.Clear();
    main.keywords.ListKeywords.Clear();
    main.topics.ListAliases.Clear();
    main.topics.current_topic_index = 0;
    for (const int panel : {1, 2}) main.window.StatusBar1.SetPanel(panel, {});
    main.editor.main_path.clear();
    CloseDocument(main, "There is no topic to show.");
    main.editor.TopicPropDirty = false;
    main.editor.new_topic_template = "False";
    main.editor.loaded.clear();
    // What the project's files do not say must not be that of the project before.
    main.contents.site_properties_toc.clear();
    main.keywords.site_properties_index.clear();
    main.project.hhcfile.clear();
    main.project.hhkfile.clear();
    main.project.java_map_file.clear();
    main.project.project_title.clear();
    main.project.project_def_topic.clear();
}

void ShowBuildButtons(MainForm& main) {
    const bool javahelp = main.project.help_mode == 1 || main.settings.is_javahelp_edition;
    main.window.Named("Compile").Visible = !javahelp;
    main.window.Named("jar").Visible = javahelp;
}

bool IsJavaHelpProject(std::string_view proj) {
    return LowerAscii(proj).ends_with(".hs");
}

void UpdateCaption(MainForm& main) {
    std::string caption = main.settings.APP_NAME;
    if (!main.project.proj.empty()) caption += " - " + main.project.project_title;
    main.window.window.Caption = caption;
}

void OpenProject_Click(MainForm& main) {
    // Taken in any case: one that was left off is not to be opened by the next command.
    std::string chosen = std::exchange(main.project.recent_proj, {});
    const int answer = PromptSaveChanges(main);
    if (answer == save_prompt::kCancelled) return;
    if (chosen.empty()) chosen = ChooseProject(main);
    if (chosen.empty() || !MayOpen(main, chosen)) return;
    if (answer == save_prompt::kDiscarded) ClearTempFiles(main);
    ProjectState& project = main.project;
    ForgetUnsavedWork(main);  // saved, or given up
    main.unsaved.is_open = false;
    const bool converts = main.settings.is_javahelp_edition && !IsJavaHelpProject(chosen);
    project.proj = project.opened_proj = std::move(chosen);
    const Trap trap(main.log, "MainForm OpenProject Click: ");
    main.project.proj_success = true;
    ReadProjectSettings(main);
    ClearProject(main);
    main.project.help_mode = IsJavaHelpProject(main.project.proj) ? 1 : 0;
    ShowBuildButtons(main);
    UpdateToolbars(main);
    DeriveFileNames(main);
    {
        const Hourglass hourglass(main.screen);
        if (main.project.help_mode == 1) {
            ReadJavaHelpProject(main);
        } else {
            ReadHtmlHelpProject(main, trap);
        }
    }
    project.lngMapCount = ReadImageMapCount(main);
    MarkTakenBackWork(main);
    for (const std::string& file : ProjectFiles(main)) main.texts.Known().NoteAbsent(file);
    TellWhatWasLeftBehind(main, converts);
}

bool OpenRecentProject(MainForm& main, std::string_view path) {
    if (!main.files.FileExists(path)) {
        main.screen.ShowMessage({"Cannot find file " + main.files.NativePath(path) + ".",
                                 main.settings.APP_NAME, MessageButtons::kOk,
                                 MessageIcon::kExclamation});
        main.project.recent_proj.clear();
        return false;
    }
    main.project.recent_proj = path;
    OpenProject_Click(main);
    return true;
}

void recent_Click(MainForm& main, int index) {
    const std::string_view entry = main.recent.recent_list.at(static_cast<std::size_t>(index));
    OpenRecentProject(main, std::string(entry.substr(0, entry.find('|'))));
}

}  // namespace quorrel
