#include "app/startup.hpp"

#include <initializer_list>

#include "app/commands.hpp"
#include "app/form_settings.hpp"
#include "app/form_splash.hpp"
#include "app/form_startup.hpp"
#include "app/main_form.hpp"
#include "app/recent_projects.hpp"
#include "app/settings_file.hpp"
#include "app/tool_bar.hpp"
#include "app/views.hpp"
#include "contents/contents_item_panel.hpp"
#include "editor/load_file.hpp"
#include "editor/save_html.hpp"
#include "platform/text.hpp"
#include "project/foreign_files.hpp"
#include "project/open_project.hpp"
#include "project/save_project.hpp"
#include "project/side_files.hpp"
#include "project/unsaved_work.hpp"

namespace quorrel {
namespace {

/// Commands that only one edition shows; the others are the same in both.
struct EditionControl {
    std::string_view name;
    bool in_javahelp;
    bool in_html_help;
};
constexpr EditionControl kEditionControls[] = {
    {"editcssfile", true, true},     {"editjsfile", false, true},
    {"popcopyinteger", false, true}, {"popiaddseealso", false, true},
    {"htmlhelpdoc", false, true},    {"runhelpworkshop", false, true},
    {"insertexpsec", false, true},   {"Compile", false, true},
    {"expand", false, true},         {"jar", true, false},
};

struct EditionCaption {
    std::string_view name;
    std::string_view in_javahelp;
    std::string_view in_html_help;
};
constexpr EditionCaption kEditionCaptions[] = {
    {"viewjavahelp", "&View JavaHelp System", "&View Compiled Help File"},
    {"buildsearch", "&Build Full-Text Search Database...", "&Compile Help File"},
    {"validatesearch", "&Test Search Database...", "View Compiler &Messages"},
    {"insertpopup", "&Pop-up/Secondary Window Link...", "Insert Pop-up"},
};

void AdaptToEdition(MainForm& main) {
    const bool javahelp = main.settings.is_javahelp_edition;
    for (const EditionControl& control : kEditionControls) {
        main.window.Named(control.name).Visible =
            javahelp ? control.in_javahelp : control.in_html_help;
    }
    WindowControls& window = main.window;
    window.ComboIcon.Visible = javahelp;
    for (Control* control : std::initializer_list<Control*>{
             &window.Label4, &window.EditInteger, &window.Label8, &window.Label9, &window.EditFrame,
             &window.EditWindow, &window.CheckMarkNew, &window.CommandIconList,
             &window.CommandSeeAlso, &window.EditIcon}) {
        control->Visible = !javahelp;
    }
    window.Label3.Caption = std::string(javahelp ? "MapID" : "Alias");
    for (const EditionCaption& control : kEditionCaptions) {
        main.window.Named(control.name).Caption =
            std::string(javahelp ? control.in_javahelp : control.in_html_help);
    }
    main.window.Named("Popup").ToolTipText =
        std::string(javahelp ? "Insert Pop-up or Secondary Window" : "Insert Popup Window");
    main.settings.APP_NAME = javahelp ? "Quorrel JavaHelp Edition" : "Quorrel HTML Help Edition";
}

void ReadLocations(MainForm& main) {
    SettingsState& settings = main.settings;
    settings.main_dir = GetIni(main, "Locations", "main dir", settings.found_main_dir);
    settings.main_spell_dic = GetIni(main, "Locations", "main dictionary", "");
    settings.custom_spell_dic = GetIni(main, "Locations", "custom dictionary", "");
}

std::string DictionaryOr(const std::string& stored, const std::string& main_dir,
                         std::string_view file) {
    if (!stored.empty()) return stored;
    return ReplaceAll(main_dir + "\\" + std::string(file), "\\\\", "\\");
}

void ReadTools(MainForm& main) {
    SettingsState& settings = main.settings;
    settings.javahelp_viewer = GetIni(main, "JavaHelp", "viewer", "");
    settings.javahelp_indexer = GetIni(main, "JavaHelp", "indexer", "");
    settings.javahelp_jar = GetIni(main, "JavaHelp", "jar", "");
    settings.hhc = GetIni(main, "HTML Help", "hhc", "");
    if (settings.hhc.empty()) settings.hhc = "c:\\Program Files\\HTML Help Workshop\\hhc.exe";
}

void ResetProject(MainForm& main) {
    main.project.replace_topic_option = 0;
    main.project.Alias_Prefix.clear();
    main.project.next_integer = 0;
    main.project.project_dirty = false;
    main.editor.ActiveDirty = false;
    main.editor.new_topic_template = "False";
    main.editor.main_path.clear();
}

void FillFixedLists(MainForm& main) {
    const bool javahelp = main.settings.is_javahelp_edition;
    ListView& topics = main.topics.ListTopics;
    topics.columns = {{"Title", 3500},
                      {javahelp ? "MapID" : "Alias", javahelp ? 2500 : 1000},
                      {"Location", 4000},
                      {javahelp ? "" : "Context Integer", 20000},
                      {"", 0},
                      {"", 0},
                      {"", 0},
                      {"", 0}};
    main.keywords.ListKeywords.columns = {{"", 6000}, {"", 0}, {"", 0}, {"", 0}};
    main.topics.ListAliases.columns = {{"", 3000}, {"", 3000}};

    WindowControls& window = main.window;
    for (const char* font :
         {"Times New Roman", "Arial", "Tahoma", "Courier", "Verdana", "Wingdings"}) {
        window.FontCombo.AddItem(font);
    }
    for (const char* size : {"1", "2", "3", "4", "5", "6", "7"}) window.FontSizeCombo.AddItem(size);
    for (const char* style :
         {"Normal", "Heading 1", "Heading 2", "Heading 3", "Heading 4", "Heading 5", "Heading 6"}) {
        window.ComboStyle.AddItem(style);
    }
    // The status file stores the places in this list.
    for (const char* status : {"Not Specified", "Outline", "First Draft", "In Review", "Final"}) {
        window.ComboStatus.AddItem(status);
    }
    window.ComboStatus.ListIndex = 0;
    window.TextNotes.max_length = kNotesLimit;
    window.progress.Visible = false;
    for (ComboBox* box : {&window.FontCombo, &window.FontSizeCombo, &window.ComboStyle}) {
        box->ListIndex = 0;
    }
}

}  // namespace

bool SelectsHtmlHelpEdition(std::string_view command_line) {
    return Contains(command_line, "html");
}

void LoadSettings(MainForm& main, std::string_view command_line) {
    SettingsState& settings = main.settings;
    settings.ini_file = "qrrl_hj.ini";
    settings.use_ext_editor = GetIni(main, "Settings", "useexted", "0") == "1";
    settings.ext_editor = GetIni(main, "Settings", "exted", "");
    settings.is_javahelp_edition = !SelectsHtmlHelpEdition(command_line);
    PrepareCommands(main);
    AskBeforeReplacing(main);
    AdaptToEdition(main);
    UpdateCaption(main);
    ResetProject(main);
    ReadLocations(main);
    // On in every case: the stored value, which the end of the run writes, does not change that.
    settings.preserve_html = true;
    main.DHTMLEdit1.SetSourceCodePreservation(settings.preserve_html);
    main.window.Named("Viewsub2").Checked = !settings.preserve_html;
    settings.main_spell_dic =
        DictionaryOr(settings.main_spell_dic, settings.main_dir, "american.vtd");
    settings.custom_spell_dic =
        DictionaryOr(settings.custom_spell_dic, settings.main_dir, "custom.dic");
    const bool javahelp = settings.is_javahelp_edition;
    settings.help_file = settings.main_dir + (javahelp ? "qrrl_j.hlp" : "qrrl_h.hlp") + ">proc1";
    settings.Template_Dir =
        settings.main_dir + (javahelp ? "Topic Templates\\javahelp" : "Topic Templates\\htmlhelp");
    ReadTools(main);
    LoadRecentList(main);
    BuildRecentMenu(main);
    FillFixedLists(main);
    main.window.TabStrip2.SelectedIndex = right_tab::kNormal;
    ConnectEvents(main);
    main.window.TabStrip1.SelectedIndex = left_tab::kContents;
    ShowFirstTabs(main);
    UpdateToolbars(main);
}

void Form_Load(MainForm& main, std::string_view command_line) {
    frmSplash splash(command_line);
    main.screen.ShowModal(splash);
    LoadSettings(main, command_line);
    main.window.window.Visible = true;
    FormStartup startup(main);
    main.screen.ShowModal(startup);
    const bool external = main.settings.use_ext_editor;
    main.window.TabStrip2.SelectedIndex = external ? right_tab::kProperties : right_tab::kNormal;
    ApplyExternalEditorMode(main);
}

static bool MayLeaveTemplateUnsaved(MainForm& main) {
    return main.screen.ShowMessage(
               {"The topic template could not be saved.\r\n\r\nDo you want to leave it unsaved?",
                main.settings.APP_NAME, MessageButtons::kYesNo, MessageIcon::kExclamation,
                MessageAnswer::kNo}) == MessageAnswer::kYes;
}

bool Form_QueryUnload(MainForm& main) {
    if (IsTemplateOpen(main) && !SaveHTML(main, main.DHTMLEdit1.CurrentDocumentPath()) &&
        !MayLeaveTemplateUnsaved(main)) {
        return false;
    }
    CommitContentsItem(main);
    const int answer = PromptSaveChanges(main);
    if (answer == save_prompt::kDiscarded) ClearTempFiles(main);
    return answer != save_prompt::kCancelled;
}

void Form_Unload(MainForm& main) {
    ForgetUnsavedWork(main);
    WriteRecentList(main);
    SetIni(main, "Settings", {{"preserveHTML", main.settings.preserve_html ? "1" : "0"}});
}

}  // namespace quorrel
