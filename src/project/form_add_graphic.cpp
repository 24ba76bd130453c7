#include "project/form_add_graphic.hpp"

#include "app/main_form.hpp"
#include "platform/text.hpp"
#include "project/paths.hpp"

namespace quorrel {

FormAddGraphic::FormAddGraphic(MainForm& main, ListView& graphics)
    : main_(main), graphics_(graphics) {
    Command1.Caption = std::string("Select >>");
}

void FormAddGraphic::Command1_Click() {
    FileDialog dialog;
    dialog.title = "Select Graphic";
    dialog.filter = "GIF and JPEG Files (*.gif;*.jpg)|*.gif;*.jpg|All Files (*.*)|*.*";
    dialog.folder = main_.project.proj_path + "\\" + main_.project.Images_Subdir;
    const std::string path = main_.screen.ChooseFile(dialog);
    if (path.empty()) return;
    EditPath.Text = MakeRelPathRel(path, main_.project.proj);
    if (!EditMapID.Text().empty()) return;
    const std::string name = ReplaceAll(path, "/", "\\");
    EditMapID.Text = std::string(BaseName(AfterLast(name, '\\')));
}

void FormAddGraphic::Refuse(std::string_view text, const Control& control) {
    main_.screen.ShowMessage({std::string(text), main_.settings.APP_NAME, MessageButtons::kOk,
                              MessageIcon::kExclamation});
    control.SetFocus();
}

std::string FormAddGraphic::NativePath(std::string_view path) const {
    return main_.files.NativePath(path);
}

std::string FormAddGraphic::WindowsPath(std::string_view native) const {
    return InnerPath(main_.files, native);
}

void FormAddGraphic::OKButton_Click() {
    const std::string& path = EditPath.Text;
    const std::string& map_id = EditMapID.Text;
    if (path.empty() || map_id.empty()) {
        return Refuse("You must enter both a graphic path and a MapID",
                      path.empty() ? EditPath : EditMapID);
    }
    if (graphics_.FirstWith(0, map_id) != nullptr) {
        return Refuse("This MapID has already been used.", EditMapID);
    }
    ListRow& row = graphics_.Add(map_id);
    row.SetSubItem(alias_cell::kPath, path);
    graphics_.Select(&row);
    closed = true;
}

}  // namespace quorrel
