#include "ui/error_log_dialog.hpp"

#include <QDialogButtonBox>
#include <QFont>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QVBoxLayout>

#include "platform/text.hpp"
#include "ui/listen.hpp"
#include "ui/qt_text.hpp"
#include "ui/scrolled_dialog.hpp"
#include "ui/window_settings.hpp"

namespace quorrel {

ErrorLogDialog::ErrorLogDialog(FormErrorLog& form, QWidget* parent)
    : QDialog(parent), form_(form), text_(new QPlainTextEdit) {
    setObjectName("FormErrorLog");
    setWindowTitle(ToQt(form_.Caption));
    text_->setObjectName("Text1");
    text_->setAccessibleName(windowTitle());
    QFont font("Courier New", text_->font().pointSize());
    // Where it is missing, another one of one width.
    font.setStyleHint(QFont::TypeWriter);
    text_->setFont(font);
    text_->setLineWrapMode(QPlainTextEdit::NoWrap);
    text_->setReadOnly(form_.Text1.Locked());
    text_->setPlainText(ToQt(ReplaceAll(form_.Text1.Text(), kLineEnd, "\n")));
    auto* all = new QVBoxLayout(this);
    all->addWidget(text_, 1);
    all->addWidget(MakeButtons());
    typed_.emplace(*this);
    if (!WindowSettings().RestoreGeometry("FormErrorLog", this)) {
        resize(FittingSize(*this, {680, 480}));
    }
    text_->setFocus();
}

ErrorLogDialog::~ErrorLogDialog() {
    WindowSettings().SaveGeometry("FormErrorLog", this);
}

QWidget* ErrorLogDialog::MakeButtons() {
    auto* buttons = new QDialogButtonBox;
    auto* first = buttons->addButton(QString(), QDialogButtonBox::ActionRole);
    first->setObjectName("Command1");
    FollowButton(first, form_.Command1);
    first->setAutoDefault(form_.Command1IsDefault);
    first->setDefault(form_.Command1IsDefault);
    connect(first, &QPushButton::clicked, this, &ErrorLogDialog::Finish);
    auto* cancel = buttons->addButton(QString(), QDialogButtonBox::RejectRole);
    cancel->setObjectName("Command2");
    FollowButton(cancel, form_.Command2);
    connect(cancel, &QPushButton::clicked, this, &ErrorLogDialog::Leave);
    auto* help = buttons->addButton(QString(), QDialogButtonBox::HelpRole);
    help->setObjectName("Command3");
    FollowButton(help, form_.Command3);
    connect(help, &QPushButton::clicked, this, [this] { form_.Command3_Click(); });
    return buttons;
}

void ErrorLogDialog::Finish() {
    if (!form_.Text1.Locked()) {
        std::string text = ReplaceAll(FromQt(text_->toPlainText()), "\n", kLineEnd);
        form_.Text1.Text = std::move(text);
    }
    form_.Command1_Click();
    if (form_.closed) accept();
}

void ErrorLogDialog::reject() {
    if (typed_->MayBeLost()) Leave();
}

void ErrorLogDialog::Leave() {
    form_.Command2_Click();
    QDialog::reject();
}

}  // namespace quorrel
