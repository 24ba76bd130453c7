#include "ui/script_dialog.hpp"

#include <QCheckBox>
#include <QDialogButtonBox>
#include <QLabel>
#include <QLineEdit>
#include <QVBoxLayout>

#include "ui/metrics.hpp"

namespace quorrel {
namespace {

/// A script can make a message that is larger than any screen.
QString ShortMessage(const QString& message) {
    constexpr qsizetype kLines = 25;
    constexpr auto kSize = static_cast<qsizetype>(kShownCharacters);
    QString text = message.left(kSize).section('\n', 0, kLines - 1);
    return text.size() < message.size() ? text + "..." : text;
}

}  // namespace

ScriptDialog::ScriptDialog(Kind kind, const QString& message, bool may_suppress, QWidget* parent)
    : QDialog(parent),
      answer_(new QLineEdit(this)),
      suppress_(new QCheckBox("&Do not show more messages of this page", this)) {
    setObjectName("PreviewMessage");
    setWindowTitle("Quorrel");
    auto* text = new QLabel(ShortMessage(message), this);
    text->setObjectName("PreviewMessageText");
    text->setTextFormat(Qt::PlainText);
    text->setWordWrap(true);
    text->setMinimumWidth(280);
    answer_->setObjectName("PreviewMessageAnswer");
    answer_->setAccessibleName("Answer");
    answer_->setVisible(kind == Kind::kPrompt);
    suppress_->setObjectName("PreviewMessageSuppress");
    suppress_->setVisible(may_suppress);
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok, this);
    if (kind != Kind::kAlert) buttons->addButton(QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, &QDialog::accept);
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);

    auto* column = new QVBoxLayout(this);
    column->addWidget(text);
    column->addWidget(answer_);
    column->addWidget(suppress_);
    column->addWidget(buttons);
}

void ScriptDialog::SetAnswer(const QString& answer) {
    answer_->setText(answer);
    answer_->selectAll();
}

QString ScriptDialog::Answer() const {
    return answer_->text();
}

bool ScriptDialog::IsSuppressing() const {
    return suppress_->isChecked();
}

}  // namespace quorrel
