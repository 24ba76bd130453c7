#include "ui/find_bar.hpp"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

namespace quorrel {

FindBar::FindBar(QWidget* parent)
    : QWidget(parent),
      text_(new QLineEdit),
      match_case_(new QCheckBox("&Match case")),
      result_(new QLabel) {
    setObjectName("FindBar");
    text_->setObjectName("FindText");
    text_->setClearButtonEnabled(true);
    match_case_->setObjectName("FindMatchCase");
    auto* label = new QLabel("Find:");
    label->setBuddy(text_);
    const auto button = [this](const char* name, const QString& text, auto work) {
        auto* made = new QToolButton;
        made->setObjectName(name);
        made->setText(text);
        made->setAutoRaise(true);
        connect(made, &QToolButton::clicked, this, work);
        return made;
    };
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(6, 3, 6, 3);
    row->addWidget(label);
    row->addWidget(text_, 1);
    row->addWidget(button("FindNext", "Next", [this] { Find(false); }));
    row->addWidget(button("FindPrevious", "Previous", [this] { Find(true); }));
    row->addWidget(match_case_);
    row->addWidget(result_, 1);
    row->addWidget(button("FindClose", "Close", [this] { Close(); }));
    connect(text_, &QLineEdit::textChanged, result_, &QLabel::clear);
    hide();
}

void FindBar::Open(const QString& text) {
    if (!text.isEmpty()) text_->setText(text);
    show();
    text_->setFocus();
    text_->selectAll();
}

void FindBar::Find(bool is_up) {
    const QString wanted = text_->text();
    if (wanted.isEmpty()) return Open({});
    const bool is_found = find && find(wanted, is_up, match_case_->isChecked());
    result_->setText(is_found ? QString() : QStringLiteral("Not found"));
}

void FindBar::Close() {
    hide();
    emit Closed();
}

void FindBar::keyPressEvent(QKeyEvent* event) {
    switch (event->key()) {
        case Qt::Key_Escape:
            return Close();
        case Qt::Key_Return:
        case Qt::Key_Enter:
            return Find(event->modifiers().testFlag(Qt::ShiftModifier));
        default:
            QWidget::keyPressEvent(event);
    }
}

}  // namespace quorrel
