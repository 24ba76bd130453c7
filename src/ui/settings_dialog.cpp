#include "ui/settings_dialog.hpp"

#include <QBoxLayout>
#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QToolButton>

#include "ui/listen.hpp"
#include "ui/qt_text.hpp"

namespace quorrel {

SettingsDialog::SettingsDialog(FormSettings& form, QWidget* parent) : QDialog(parent), form_(form) {
    setObjectName("FormSettings");
    setWindowTitle(ToQt(FormSettings::kCaption));
    auto* external = new QCheckBox("&Edit topics in an external HTML editor");
    external->setObjectName("CheckExtEditor");
    FollowCheckBox(external, form_.CheckExtEditor);
    auto* all = new QVBoxLayout(this);
    all->addWidget(external);
    all->addLayout(MakePathRow());
    all->addStretch();
    all->addWidget(MakeButtons());
    resize(480, sizeHint().height());
    typed_.emplace(*this);
}

QLayout* SettingsDialog::MakePathRow() {
    auto* path = new QLineEdit;
    path->setObjectName("EditEditorPath");
    path->setAccessibleName("Path of the HTML editor");
    FollowTextBox(path, form_.EditEditorPath);
    auto* label = new QLabel("&Path:");
    label->setBuddy(path);
    auto* choose = new QToolButton;
    choose->setObjectName("Command2");
    choose->setText("...");
    choose->setAccessibleName("Choose the HTML editor");
    choose->setToolTip("Choose the HTML editor");
    connect(choose, &QToolButton::clicked, this, [this] { form_.Command2_Click(); });
    auto* row = new QHBoxLayout;
    row->addWidget(label);
    row->addWidget(path, 1);
    row->addWidget(choose);
    return row;
}

QWidget* SettingsDialog::MakeButtons() {
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    buttons->button(QDialogButtonBox::Ok)->setObjectName("OKButton");
    buttons->button(QDialogButtonBox::Cancel)->setObjectName("CancelButton");
    connect(buttons, &QDialogButtonBox::accepted, this, [this] {
        form_.OKButton_Click();
        if (form_.closed) accept();
    });
    connect(buttons, &QDialogButtonBox::rejected, this, &SettingsDialog::Leave);
    return buttons;
}

void SettingsDialog::reject() {
    if (typed_->MayBeLost()) Leave();
}

void SettingsDialog::Leave() {
    form_.CancelButton_Click();
    QDialog::reject();
}

}  // namespace quorrel
