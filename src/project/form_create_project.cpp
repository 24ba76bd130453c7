#include "project/form_create_project.hpp"

#include <span>

#include "app/main_form.hpp"
#include "platform/text.hpp"
#include "project/foreign_files.hpp"
#include "project/form_new_topic.hpp"
#include "project/open_project.hpp"
#include "project/paths.hpp"
#include "project/recovery.hpp"
#include "project/save_project.hpp"
#include "project/side_files.hpp"
#include "project/unsaved_work.hpp"
#include "project/xml_form.hpp"

namespace quorrel {

FormCreateProject::FormCreateProject(MainForm& main) : main_(main) {
    const bool javahelp = main.settings.is_javahelp_edition;
    LabelProject.Caption =
        std::string(javahelp ? "JavaHelp HelpSet (.hs) File" : "Help Project (.hhp) File");
    LabelTitle.Caption = std::string(javahelp ? "HelpSet Title" : "Help Project Title");
    Command1.Caption = std::string("Select >>");
    if (!javahelp) EditTitle.max_length = kProfileValueLimit;
    OKButton.Enabled = false;
    EditProject.changed.Connect([this] { OKButton.Enabled = !EditProject.Text().empty(); });
}

void FormCreateProject::Command1_Click() {
    FileDialog dialog;
    dialog.title = "Create Project";
    dialog.filter = main_.settings.is_javahelp_edition ? "JavaHelp HelpSet Files (*.hs)|*.hs"
                                                       : "HTML Help Project Files (*.hhp)|*.hhp";
    dialog.folder = main_.settings.main_dir + "projects";
    dialog.save = true;
    dialog.asks_to_overwrite = false;  // OKButton_Click does
    const std::string path = main_.screen.ChooseFile(dialog);
    if (path.empty()) return;
    EditProject.Text = path;
    EditTitle.SetFocus();
}

std::string FormCreateProject::OtherFilesInTheWay() const {
    constexpr std::string_view kHtmlHelp[] = {".hhc", ".hhk", ".h", ".ali"};
    constexpr std::string_view kJavaHelp[] = {"TOC.xml", "Index.xml", ".jhm"};
    const bool javahelp = main_.settings.is_javahelp_edition;
    std::string names;
    for (const std::string_view ending : javahelp ? std::span<const std::string_view>(kJavaHelp)
                                                  : std::span<const std::string_view>(kHtmlHelp)) {
        const std::string file = std::string(BaseName(EditProject.Text())).append(ending);
        if (main_.files.FileExists(file)) names += main_.files.NativePath(file) + "\r\n";
    }
    return names;
}

bool FormCreateProject::MayReplace() {
    if (!main_.files.FileExists(EditProject.Text())) {
        const std::string names = OtherFilesInTheWay();
        return names.empty() ||
               main_.screen.ShowMessage({"The new project would replace these files:\r\n\r\n" +
                                             names + "\r\nDo you want to replace them?",
                                         main_.settings.APP_NAME, MessageButtons::kYesNo,
                                         MessageIcon::kExclamation, MessageAnswer::kNo}) ==
                   MessageAnswer::kYes;
    }
    return main_.screen.ShowMessage({"A project with this name aleady exists. Overwrite it?",
                                     main_.settings.APP_NAME, MessageButtons::kYesNoCancel,
                                     MessageIcon::kExclamation, MessageAnswer::kNo}) ==
           MessageAnswer::kYes;
}

bool FormCreateProject::MakeProjectFolder() {
    const Trap trap(main_.log, "FormCreateProject OKButton_Click: ");
    const std::string folder(BeforeLast(EditProject.Text(), '\\', {}));
    if (trap([&] { MakeFolder(main_.files, folder); })) return true;
    main_.screen.ShowMessage({"The folder " + main_.files.NativePath(folder) +
                                  " could not be made.\r\n\r\n" + main_.log.LastLine(),
                              main_.settings.APP_NAME, MessageButtons::kOk,
                              MessageIcon::kExclamation});
    EditProject.SetFocus();
    return false;
}

void FormCreateProject::NameFiles() {
    ProjectState& project = main_.project;
    const std::string base(BaseName(project.proj));
    const bool javahelp = main_.settings.is_javahelp_edition;
    project.Pages_SubDir = javahelp ? "HTML" : "";
    project.hhcfile = base + (javahelp ? "TOC.xml" : ".hhc");
    project.hhkfile = base + (javahelp ? "Index.xml" : ".hhk");
    project.java_map_file = base + (javahelp ? ".jhm" : ".h");
    project.status_file = base + ".stn";
    main_.outline.doc_outline = base + ".out";
    project.javahelp_do_fts = true;
    project.Images_Subdir = "Images";
    SetProj(main_, "Settings", {{"html", project.Pages_SubDir}, {"images", project.Images_Subdir}});
}

/// Where the user has said that the project which lies there goes, so do all of its files.
void FormCreateProject::TakeOverFiles() {
    const bool replaces = main_.files.FileExists(main_.project.proj);
    for (const std::string& file : ProjectFiles(main_)) {
        if (replaces) main_.texts.Known().Approve(file);
        main_.texts.Known().NoteAbsent(file);
    }
}

void FormCreateProject::MakeImagesFolder() {
    const Trap trap(main_.log, "FormCreateProject OKButton_Click: ");
    const std::string folder = main_.project.proj_path + "\\Images";
    if (!main_.files.FolderExists(folder)) trap([&] { main_.files.CreateFolder(folder); });
}

void FormCreateProject::OKButton_Click() {
    const bool javahelp = main_.settings.is_javahelp_edition;
    ProjectState& project = main_.project;
    project.help_mode = javahelp ? 1 : 0;
    if (EditProject.Text().empty()) return EditProject.SetFocus();
    // Without its ending the project could not be opened again.
    if (!Contains(AfterLast(EditProject.Text(), '\\'), ".")) {
        EditProject.Text = EditProject.Text() + (javahelp ? ".hs" : ".hhp");
    }
    if (!MayReplace() || !MakeProjectFolder()) return;
    if (discards_changes) ClearTempFiles(main_);
    ForgetUnsavedWork(main_);
    main_.unsaved.is_open = false;
    project.proj = project.opened_proj = EditProject.Text();
    ClearProject(main_);
    main_.texts.StartProject(BeforeLast(project.proj, '\\', {}));
    main_.texts.UseLanguage({});
    // All of the project's files are to be written by the first save, also over those of a project
    // that is replaced.
    main_.contents.toc_dirty = main_.keywords.index_dirty = true;
    main_.outline.doc_dirty = false;
    project.project_dirty = true;
    project.proj_path = BeforeLast(project.proj, '\\', {});
    NameFiles();
    TakeOverFiles();
    ReadXmlForm(main_);
    project.lngMapCount = ReadImageMapCount(main_);
    ShowBuildButtons(main_);
    MakeImagesFolder();
    project.last_file_path = project.proj_path + (javahelp ? "\\HTML" : "");
    project.common_flag = 1;
    const std::string& title = EditTitle.Text;
    project.project_title = title.empty() ? "Untitled" : title;
    UpdateCaption(main_);
    project.proj_success = true;
    StartUnsavedWork(main_);
    ShowNewTopic(main_);
    project.common_flag = 0;
    closed = true;
}

std::string FormCreateProject::NativePath(std::string_view path) const {
    return main_.files.NativePath(path);
}

std::string FormCreateProject::WindowsPath(std::string_view native) const {
    return native.empty() ? std::string() : main_.files.WindowsPath(native);
}

void FileNewProject_Click(MainForm& main) {
    const int answer = PromptSaveChanges(main);
    if (answer == save_prompt::kCancelled) return;
    FormCreateProject form(main);
    form.discards_changes = answer == save_prompt::kDiscarded;
    main.screen.ShowModal(form);
}

}  // namespace quorrel
