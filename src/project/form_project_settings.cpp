#include "project/form_project_settings.hpp"

#include <algorithm>

#include "app/main_form.hpp"
#include "app/settings_file.hpp"
#include "platform/text.hpp"
#include "project/form_add_graphic.hpp"
#include "project/open_project.hpp"
#include "project/paths.hpp"
#include "project/side_files.hpp"

namespace quorrel {
namespace {

constexpr std::string_view kToolFilter =
    "Jar/Program/Batch Files (*.jar;*.exe;*.bat)|*.jar;*.exe;*.bat";

std::vector<std::string> PageCaptions(bool javahelp) {
    return {"Project Files", javahelp ? "HelpSet" : "Help Project",
            javahelp ? "JavaHelp Utilities" : "HTML Help Utilities", "Project Images/Icons"};
}

bool IsImage(const ListRow& alias) {
    const std::string& path = alias.SubItems(alias_cell::kPath);
    return ContainsIgnoringAsciiCase(path, ".GIF") || ContainsIgnoringAsciiCase(path, ".JPG");
}

}  // namespace

FormProjectSettings::FormProjectSettings(MainForm& main)
    : tbsOptions(PageCaptions(main.settings.is_javahelp_edition)), main_(main) {
    LoadCaptions();
    LoadFields();
    LimitFields();
    LoadImages();
    const int last = HasImages() ? options_page::kImages : options_page::kTools;
    tbsOptions.SelectedIndex = std::clamp(main.project.ProjSettingsTab, options_page::kFiles, last);
}

void FormProjectSettings::LoadCaptions() {
    const bool javahelp = main_.settings.is_javahelp_edition;
    LabelProject.Caption = std::string(javahelp ? "HelpSet (.hs)" : "Help Project (.hhp)");
    LabelMapFile.Caption = std::string(javahelp ? "Map (.jhm) File" : "Map (.h) File");
    LabelHomeID.Caption = std::string(javahelp ? "Default Topic (MapID)" : "Default Topic");
    CheckJavaFTS.Caption = std::string("Include Full Text Search Tab");
    CheckJavaFTS.Visible = javahelp;
    LabelViewer.Caption = std::string(javahelp ? "HelpSet Viewer (hsviewer.jar or hsviewer.exe)"
                                               : "HTML Help Compiler (hhc.exe)");
    LabelIndexer.Caption = std::string("Search Indexer (jhindexer.jar or jhindexer.exe)");
    LabelJAR.Caption = std::string("JAR Archiver (jar.exe)");
    for (Control* control : std::initializer_list<Control*>{
             &LabelIndexer, &EditIndexerpath, &Command2, &LabelJAR, &EditJARPath, &Command3}) {
        control->Visible = javahelp;
    }
}

void FormProjectSettings::LoadFields() {
    const ProjectState& project = main_.project;
    const SettingsState& settings = main_.settings;
    EditProject.Text = project.proj;
    EditProject.Locked = true;
    EditHTMLDir.Text = project.Pages_SubDir;
    EditImageDir.Text = project.Images_Subdir;
    EditMapFile.Text = ShownName(project.java_map_file);
    EditTOCFile.Text = ShownName(project.hhcfile);
    EditIndexFile.Text = ShownName(project.hhkfile);
    EditTitle.Text = project.project_title;
    if (settings.is_javahelp_edition) OfferMapIds();
    EditHomeID.Text = project.project_def_topic;
    CheckJavaFTS.Value = project.javahelp_do_fts;
    EditViewerPath.Text = settings.is_javahelp_edition ? settings.javahelp_viewer : settings.hhc;
    EditIndexerpath.Text = settings.javahelp_indexer;
    EditJARPath.Text = settings.javahelp_jar;
}

void FormProjectSettings::OfferMapIds() {
    std::vector<std::string> ids;
    const ListView& topics = main_.topics.ListTopics;
    for (int i = 1; i <= topics.Count(); ++i) {
        const std::string& id = topics.At(i).SubItems(topic_cell::kMapId);
        if (!id.empty()) ids.push_back(id);
    }
    std::sort(ids.begin(), ids.end());
    for (std::string& id : ids) EditHomeID.AddItem(std::move(id));
}

/// What is read as a single value of the .prj, the settings or the .hhp can be no longer.
void FormProjectSettings::LimitFields() {
    for (TextBox* edit :
         {&EditHTMLDir, &EditImageDir, &EditViewerPath, &EditIndexerpath, &EditJARPath}) {
        edit->max_length = kProfileValueLimit;
    }
    if (main_.settings.is_javahelp_edition) return;
    for (TextBox* edit : {&EditTOCFile, &EditIndexFile, &EditTitle}) {
        edit->max_length = kProfileValueLimit;
    }
}

void FormProjectSettings::LoadImages() {
    ListAliases.columns = {{"MapID", 3000}, {"Graphic", 3000}};
    const ListView& all = main_.topics.ListAliases;
    for (int i = 1; i <= all.Count(); ++i) {
        const ListRow& alias = all.At(i);
        if (!IsImage(alias)) continue;
        ListAliases.Add(alias.Text())
            .SetSubItem(alias_cell::kPath, alias.SubItems(alias_cell::kPath));
    }
    ListAliases.changed.Connect([this] { ListAliases_Click(); });
    ListAliases.rows_changed.Connect([this] { images_changed_ = true; });
    ListAliases_Click();
}

bool FormProjectSettings::HasImages() const {
    return main_.settings.is_javahelp_edition;
}

void FormProjectSettings::ListAliases_Click() {
    Command6.Enabled = ListAliases.SelectedItem() != nullptr;
}

void FormProjectSettings::ChooseTool(TextBox& edit) {
    FileDialog dialog;
    dialog.title = "Open";
    dialog.filter = kToolFilter;
    dialog.folder = BeforeLast(edit.Text(), '\\', {});
    const std::string path = main_.screen.ChooseFile(dialog);
    if (!path.empty()) edit.Text = path;
}

void FormProjectSettings::Command5_Click() {
    FormAddGraphic form(main_, ListAliases);
    main_.screen.ShowModal(form);
}

void FormProjectSettings::Command6_Click() {
    const ListRow* row = ListAliases.SelectedItem();
    if (row == nullptr) return;
    const int position = ListAliases.PositionOf(*row);
    ListAliases.Remove(position);
    const int next = std::min(position, ListAliases.Count());
    if (next > 0) ListAliases.Select(&ListAliases.At(next));
}

bool FormProjectSettings::CheckFolder(const TextBox& edit) {
    if (!Contains(edit.Text(), ":")) return true;
    main_.screen.ShowMessage(
        {"You cannot specify a full path here. Enter only the name of a folder to be placed under "
         "your project directory.",
         main_.settings.APP_NAME, MessageButtons::kOk, MessageIcon::kExclamation});
    tbsOptions.SelectedIndex = options_page::kFiles;
    edit.SetFocus();
    return false;
}

std::string FormProjectSettings::ShownName(const std::string& path) const {
    return MakeRelPathRel(path, main_.project.proj);
}

std::string FormProjectSettings::NewPath(const TextBox& edit, const std::string& path) const {
    // A file elsewhere would be lost by putting its shown name below the project's folder.
    if (edit.Text().empty() || edit.Text() == ShownName(path)) return path;
    return main_.project.proj_path + "\\" + edit.Text();
}

void FormProjectSettings::StoreFiles() {
    ProjectState& project = main_.project;
    project.Pages_SubDir = EditHTMLDir.Text;
    project.Images_Subdir = EditImageDir.Text;
    project.java_map_file = NewPath(EditMapFile, project.java_map_file);
    const std::string contents = NewPath(EditTOCFile, project.hhcfile);
    if (contents != project.hhcfile) {
        project.hhcfile = contents;
        main_.contents.toc_dirty = true;
    }
    const std::string index = NewPath(EditIndexFile, project.hhkfile);
    if (index != project.hhkfile) {
        project.hhkfile = index;
        main_.keywords.index_dirty = true;
    }
    project.project_def_topic = EditHomeID.Text;
    project.project_title = EditTitle.Text;
}

void FormProjectSettings::StoreTools() {
    SettingsState& settings = main_.settings;
    if (!settings.is_javahelp_edition) {
        settings.hhc = EditViewerPath.Text;
        SetIni(main_, "HTML Help", {{"hhc", settings.hhc}});
        return;
    }
    settings.javahelp_viewer = EditViewerPath.Text;
    settings.javahelp_indexer = EditIndexerpath.Text;
    settings.javahelp_jar = EditJARPath.Text;
    SetIni(main_, "JavaHelp",
           {{"viewer", settings.javahelp_viewer},
            {"indexer", settings.javahelp_indexer},
            {"jar", settings.javahelp_jar}});
}

void FormProjectSettings::StoreFolders() {
    const ProjectState& project = main_.project;
    const Trap trap(main_.log, "FormProjectSettings cmdOK_Click: ");
    SetProj(main_, "Settings", {{"html", project.Pages_SubDir}, {"images", project.Images_Subdir}});
    trap([&] { MakeFolder(main_.files, project.proj_path + "\\" + project.Images_Subdir); });
}

void FormProjectSettings::StoreImages() {
    ListView& all = main_.topics.ListAliases;
    for (int i = all.Count(); i >= 1; --i) {
        if (IsImage(all.At(i))) all.Remove(i);
    }
    for (int i = 1; i <= ListAliases.Count(); ++i) {
        const ListRow& image = ListAliases.At(i);
        all.Add(image.Text()).SetSubItem(alias_cell::kPath, image.SubItems(alias_cell::kPath));
    }
}

void FormProjectSettings::NoteChange() {
    const ProjectState& project = main_.project;
    const bool changed = EditTitle.Text() != project.project_title ||
                         EditHomeID.Text() != project.project_def_topic ||
                         NewPath(EditMapFile, project.java_map_file) != project.java_map_file ||
                         NewPath(EditTOCFile, project.hhcfile) != project.hhcfile ||
                         NewPath(EditIndexFile, project.hhkfile) != project.hhkfile ||
                         CheckJavaFTS.Value() != project.javahelp_do_fts || images_changed_;
    if (changed) main_.project.project_dirty = main_.unsaved.lists_changed = true;
}

void FormProjectSettings::cmdOK_Click() {
    if (!CheckFolder(EditHTMLDir) || !CheckFolder(EditImageDir)) return;
    NoteChange();
    StoreFiles();
    StoreTools();
    StoreFolders();
    main_.project.javahelp_do_fts = CheckJavaFTS.Value;
    StoreImages();
    UpdateCaption(main_);
    closed = true;
}

std::string FormProjectSettings::NativePath(std::string_view path) const {
    return main_.files.NativePath(path);
}

std::string FormProjectSettings::WindowsPath(std::string_view native) const {
    return InnerPath(main_.files, native);
}

void projopt_Click(MainForm& main) {
    main.project.ProjSettingsTab = options_page::kFiles;
    ShowProjectSettings(main);
}

void ShowProjectSettings(MainForm& main) {
    FormProjectSettings form(main);
    main.screen.ShowModal(form);
}

}  // namespace quorrel
