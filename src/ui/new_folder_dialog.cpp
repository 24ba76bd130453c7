#include "ui/new_folder_dialog.hpp"

#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "ui/dialog_fields.hpp"
#include "ui/elided_label.hpp"
#include "ui/listen.hpp"
#include "ui/qt_text.hpp"

namespace quorrel {

NewFolderDialog::NewFolderDialog(FormNewFolder& form, QWidget* parent)
    : FormDialog(form, ToQt(FormNewFolder::kCaption), parent), form_(form) {
    QLineEdit* name = MakeEdit("Text1", form_.Text1);
    auto* parent_folder = new ElidedLabel("LabelParent", Qt::ElideMiddle);
    parent_folder->ShowText(ToQt(form_.NativeParent()));
    auto* all = new QVBoxLayout(this);
    all->addWidget(new QLabel("The new folder is made in:"));
    all->addWidget(parent_folder);
    all->addWidget(MakeLabel("&Name:", name));
    all->addWidget(name);
    all->addStretch();
    all->addWidget(MakeButtons(
        "OKButton", [this] { form_.OKButton_Click(); }, "CancelButton"));
    FollowControl(OkButton(), form_.OKButton);
    RestoreSize(objectName(), {400, 0});
    name->setFocus();
}

}  // namespace quorrel
