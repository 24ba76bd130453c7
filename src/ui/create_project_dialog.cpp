#include "ui/create_project_dialog.hpp"

#include <QBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QStyle>

#include "ui/dialog_fields.hpp"
#include "ui/listen.hpp"
#include "ui/qt_text.hpp"

namespace quorrel {

CreateProjectDialog::CreateProjectDialog(FormCreateProject& form, QWidget* parent)
    : FormDialog(form, ToQt(FormCreateProject::kCaption), parent), form_(form) {
    QLineEdit* title = MakeEdit("EditTitle", form_.EditTitle);
    auto* all = new QVBoxLayout(this);
    all->addLayout(MakeNotice());
    all->addLayout(MakeProject());
    all->addWidget(MakeLabel("LabelTitle", form_.LabelTitle, title, 'T'));
    all->addWidget(title);
    all->addStretch();
    all->addWidget(MakeButtons(
        "OKButton", [this] { form_.OKButton_Click(); }, "CancelButton"));
    FollowControl(OkButton(), form_.OKButton);
    RestoreSize(objectName(), {520, 0});
    findChild<QLineEdit*>("EditProject")->setFocus();
}

QLayout* CreateProjectDialog::MakeNotice() {
    const int size = style()->pixelMetric(QStyle::PM_LargeIconSize);
    auto* picture = new QLabel;
    picture->setPixmap(style()->standardIcon(QStyle::SP_MessageBoxWarning).pixmap(size));
    auto* notice = new QLabel(ToQt(FormCreateProject::kNotice));
    notice->setObjectName("LabelNotice");
    notice->setWordWrap(true);
    auto* row = new QHBoxLayout;
    row->addWidget(picture);
    row->addWidget(notice, 1);
    return row;
}

QLayout* CreateProjectDialog::MakeProject() {
    QLineEdit* path =
        MakePathEdit("EditProject", form_.EditProject,
                     {[this](std::string_view text) { return form_.NativePath(text); },
                      [this](std::string_view text) { return form_.WindowsPath(text); }});
    QPushButton* select = MakeButton("Command1", {}, form_.Command1);
    select->setText("&Select >>");
    OnClick(select, [this] { form_.Command1_Click(); });
    auto* row = new QHBoxLayout;
    row->addWidget(path, 1);
    row->addWidget(select);
    auto* column = new QVBoxLayout;
    column->addWidget(MakeLabel("LabelProject", form_.LabelProject, path));
    column->addLayout(row);
    return column;
}

}  // namespace quorrel
