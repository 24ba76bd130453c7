#include "ui/see_also_dialog.hpp"

#include <QBoxLayout>
#include <QLabel>
#include <QLineEdit>
#include <QPushButton>
#include <QScreen>
#include <QShowEvent>

#include "app/main_form.hpp"
#include "ui/dialog_fields.hpp"
#include "ui/listen.hpp"
#include "ui/qt_text.hpp"

namespace quorrel {

SeeAlsoDialog::SeeAlsoDialog(std::unique_ptr<FormSeeAlso> form, QWidget* parent)
    : QDialog(parent), form_(std::move(form)) {
    setObjectName(ToQt(form_->Name()));
    setWindowTitle(ToQt(FormSeeAlso::kCaption));
    setAttribute(Qt::WA_DeleteOnClose);
    auto* hint = new QLabel(ToQt(FormSeeAlso::kHint));
    hint->setWordWrap(true);
    QLineEdit* key = MakeEdit("EditMainKey", form_->EditMainKey);
    QLabel* label = MakeLabel(ToQt(FormSeeAlso::kKeyLabel), key);
    label->setWordWrap(true);
    key->setAccessibleName(label->text());
    auto* all = new QVBoxLayout(this);
    all->addWidget(hint);
    all->addWidget(label);
    all->addWidget(key);
    all->addStretch();
    all->addWidget(MakeButtons());
    resize(380, sizeHint().height());
    // The index is where the target is chosen.
    TabStrip& strip = form_->Main().window.TabStrip1;
    if (strip.Enabled) strip.SelectedIndex = left_tab::kIndex;
    key->setFocus();
    typed_.emplace(*this);
}

QWidget* SeeAlsoDialog::MakeButtons() {
    auto* buttons = new QWidget;
    auto* row = new QHBoxLayout(buttons);
    row->setContentsMargins(0, 0, 0, 0);
    row->addStretch();
    auto* add = MakeButton("Command1", "Add to Index", form_->Command1);
    auto* close = MakeButton("CancelButton", "Close", form_->CancelButton);
    add->setDefault(true);
    row->addWidget(add);
    row->addWidget(close);
    const auto can_add = [this, add] {
        add->setEnabled(!form_->EditMainKey.Text().empty() && form_->Command1.Enabled());
    };
    can_add();
    Listen(form_->EditMainKey.changed, add, can_add);
    connect(add, &QPushButton::clicked, this, [this] { form_->Command1_Click(); });
    connect(close, &QPushButton::clicked, this, [this] {
        form_->CancelButton_Click();
        QDialog::reject();
    });
    return buttons;
}

void SeeAlsoDialog::reject() {
    if (typed_->MayBeLost()) QDialog::reject();
}

void SeeAlsoDialog::done(int result) {
    if (!form_->closed) form_->CancelButton_Click();
    form_->Unload();
    QDialog::done(result);
}

void SeeAlsoDialog::showEvent(QShowEvent* event) {
    QDialog::showEvent(event);
    if (!event->spontaneous()) MoveBesideIndex();
}

void SeeAlsoDialog::MoveBesideIndex() {
    const auto* index =
        parentWidget() == nullptr ? nullptr : parentWidget()->findChild<QWidget*>("ListKeywords");
    if (index == nullptr || !index->isVisible()) return;
    constexpr int kGap = 24;
    const QPoint wanted = index->mapToGlobal(QPoint(index->width() + kGap, kGap));
    const QRect room = screen()->availableGeometry();
    move(qMin(wanted.x(), room.right() - frameGeometry().width()),
         qMin(wanted.y(), room.bottom() - frameGeometry().height()));
}

}  // namespace quorrel
