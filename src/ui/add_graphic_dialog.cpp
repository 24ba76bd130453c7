#include "ui/add_graphic_dialog.hpp"

#include <QGridLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>

#include "ui/dialog_fields.hpp"
#include "ui/qt_text.hpp"

namespace quorrel {

AddGraphicDialog::AddGraphicDialog(FormAddGraphic& form, QWidget* parent)
    : FormDialog(form, ToQt(FormAddGraphic::kCaption), parent), form_(form) {
    QLineEdit* path =
        MakePathEdit("EditPath", form_.EditPath,
                     {[this](std::string_view text) { return form_.NativePath(text); },
                      [this](std::string_view text) { return form_.WindowsPath(text); }});
    QLineEdit* map_id = MakeEdit("EditMapID", form_.EditMapID);
    QPushButton* select = MakeButton("Command1", {}, form_.Command1);
    select->setText("&Select >>");
    OnClick(select, [this] { form_.Command1_Click(); });
    auto* grid = new QGridLayout(this);
    grid->setColumnStretch(1, 1);
    grid->setRowStretch(2, 1);
    grid->addWidget(MakeLabel("&Graphic:", path), 0, 0);
    grid->addWidget(path, 0, 1);
    grid->addWidget(select, 0, 2);
    grid->addWidget(MakeLabel("&MapID:", map_id), 1, 0);
    grid->addWidget(map_id, 1, 1, 1, 2);
    grid->addWidget(MakeButtons(
                        "OKButton", [this] { form_.OKButton_Click(); }, "CancelButton"),
                    3, 0, 1, 3);
    RestoreSize(objectName(), {480, 0});
    select->setFocus();
}

}  // namespace quorrel
