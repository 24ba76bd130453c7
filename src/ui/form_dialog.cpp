#include "ui/form_dialog.hpp"

#include <QDialogButtonBox>
#include <QPushButton>

#include "ui/qt_text.hpp"
#include "ui/scrolled_dialog.hpp"
#include "ui/window_settings.hpp"

namespace quorrel {

FormDialog::FormDialog(Form& form, const QString& caption, QWidget* parent)
    : QDialog(parent), form_(form) {
    setObjectName(ToQt(form.Name()));
    setWindowTitle(caption);
}

void FormDialog::Run(const std::function<void()>& routine) {
    routine();
    if (form_.closed) accept();
}

void FormDialog::OnClick(QAbstractButton* button, std::function<void()> routine) {
    connect(button, &QAbstractButton::clicked, this,
            [this, routine = std::move(routine)] { Run(routine); });
}

QWidget* FormDialog::MakeButtons(const QString& ok_name, std::function<void()> ok,
                                 const QString& cancel_name) {
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    ok_ = buttons->button(QDialogButtonBox::Ok);
    ok_->setObjectName(ok_name);
    ok_->setDefault(true);
    buttons->button(QDialogButtonBox::Cancel)->setObjectName(cancel_name);
    connect(buttons, &QDialogButtonBox::accepted, this, [this, ok = std::move(ok)] { Run(ok); });
    connect(buttons, &QDialogButtonBox::rejected, this, &FormDialog::Leave);
    buttons_ = buttons;
    return buttons;
}

void FormDialog::RestoreSize(const QString& name, QSize otherwise) {
    size_name_ = name;
    if (buttons_ != nullptr) ScrollAllBut(buttons_, *this);
    typed_.emplace(*this);
    if (WindowSettings().RestoreGeometry(name, this)) return;
    resize(FittingSize(*this, otherwise.expandedTo(sizeHint())));
}

void FormDialog::Leave() {
    Cancel();
    QDialog::reject();
}

void FormDialog::reject() {
    if (!typed_ || typed_->MayBeLost()) Leave();
}

void FormDialog::done(int result) {
    WindowSettings().SaveGeometry(size_name_, this);
    QDialog::done(result);
}

}  // namespace quorrel
