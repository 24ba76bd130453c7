#include "app/form_settings.hpp"

#include "app/main_form.hpp"
#include "app/settings_file.hpp"
#include "editor/load_file.hpp"

namespace quorrel {

/// The topic that was open in the other program is not on the surface yet.
static void ShowOpenTopic(MainForm& main) {
    if (main.editor.main_path.empty()) return;
    main.editor.new_main_path = main.editor.main_path;
    LoadFile(main);
}

FormSettings::FormSettings(MainForm& main) : main_(main) {
    EditEditorPath.Text = main.settings.ext_editor;
    EditEditorPath.max_length = kProfileValueLimit;
    CheckExtEditor.Value = main.settings.use_ext_editor;
}

void FormSettings::Command2_Click() {
    FileDialog dialog;
    dialog.title = "Open";
    dialog.filter = "Program Files (*.exe)|*.exe";
    const std::string path = main_.screen.ChooseFile(dialog);
    if (path.empty()) return;
    EditEditorPath.Text = main_.files.NativePath(path);
    CheckExtEditor.Value = true;
}

void FormSettings::OKButton_Click() {
    SettingsState& settings = main_.settings;
    const std::string& path = EditEditorPath.Text;
    const bool use = CheckExtEditor.Value;
    if (use && path.empty()) {
        main_.screen.ShowMessage({"You must specify a path to an HTML editor.", settings.APP_NAME,
                                  MessageButtons::kOk, MessageIcon::kExclamation});
        return;
    }
    const bool was_external = settings.use_ext_editor;
    settings.use_ext_editor = use;
    if (use) settings.ext_editor = path;
    SetIni(main_, "Settings", {{"useexted", use ? "1" : "0"}, {"exted", path}});
    if (use) main_.window.TabStrip2.SelectedIndex = right_tab::kProperties;
    ApplyExternalEditorMode(main_);
    closed = true;
    if (was_external && !use) ShowOpenTopic(main_);
}

void ApplyExternalEditorMode(MainForm& main) {
    const bool external = main.settings.use_ext_editor;
    main.window.Command3.Enabled = !external;
    main.window.LabelExtEditor.Visible = external;
    main.window.EditTitle.Enabled = !external;
}

void mnuqrsettings_Click(MainForm& main) {
    FormSettings form(main);
    main.screen.ShowModal(form);
}

}  // namespace quorrel
