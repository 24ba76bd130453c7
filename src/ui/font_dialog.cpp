#include "ui/font_dialog.hpp"

#include <QCheckBox>
#include <QColorDialog>
#include <QDialogButtonBox>
#include <QFontComboBox>
#include <QFormLayout>
#include <QPushButton>
#include <QSpinBox>

namespace quorrel {

FontDialog::FontDialog(const FontChoice& choice, QWidget* parent)
    : QDialog(parent),
      first_name_(choice.name),
      color_(choice.color),
      name_(new QFontComboBox),
      size_(new QSpinBox),
      color_button_(new QPushButton),
      bold_(new QCheckBox("&Bold")),
      italic_(new QCheckBox("&Italic")),
      underline_(new QCheckBox("&Underline")) {
    setObjectName("FormFont");
    setWindowTitle("Font");
    name_->setObjectName("FontName");
    name_->setEditText(choice.name);
    size_->setObjectName("FontSize");
    size_->setRange(1, 7);
    size_->setValue(choice.size);
    color_button_->setObjectName("FontColor");
    bold_->setObjectName("FontBold");
    bold_->setChecked(choice.bold);
    italic_->setChecked(choice.italic);
    underline_->setChecked(choice.underline);
    auto* form = new QFormLayout(this);
    form->addRow("&Font:", name_);
    form->addRow("&Size:", size_);
    form->addRow("&Color:", color_button_);
    form->addRow(bold_);
    form->addRow(italic_);
    form->addRow(underline_);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    form->addRow(buttons);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    connect(color_button_, &QPushButton::clicked, this, &FontDialog::ChooseColor);
    ShowColor();
}

void FontDialog::ChooseColor() {
    const QColor chosen = QColorDialog::getColor(color_, this);
    if (!chosen.isValid()) return;
    color_ = chosen;
    ShowColor();
}

void FontDialog::ShowColor() {
    QPixmap swatch(32, 14);
    swatch.fill(color_);
    color_button_->setIcon(swatch);
    color_button_->setText(color_.name().toUpper());
}

FontChoice FontDialog::Choice() const {
    FontChoice choice;
    // A list of names, as pages have it, stays as it is unless another font is chosen.
    choice.name = name_->currentText().isEmpty() ? first_name_ : name_->currentText();
    choice.size = size_->value();
    choice.color = color_;
    choice.bold = bold_->isChecked();
    choice.italic = italic_->isChecked();
    choice.underline = underline_->isChecked();
    return choice;
}

}  // namespace quorrel
