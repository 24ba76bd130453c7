#include "ui/typed_text.hpp"

#include <QCoreApplication>
#include <QDialog>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPlainTextEdit>

namespace quorrel {

TypedText::TypedText(QDialog& dialog) : dialog_(dialog), first_(TextsNow()) {
    for (QLineEdit* edit : dialog.findChildren<QLineEdit*>()) {
        QObject::connect(edit, &QLineEdit::textEdited, edit,
                         [typed = typed_, edit] { typed->insert(edit); });
    }
    for (QPlainTextEdit* edit : dialog.findChildren<QPlainTextEdit*>()) {
        QObject::connect(edit, &QPlainTextEdit::textChanged, edit,
                         [typed = typed_, edit] { typed->insert(edit); });
    }
}

TypedText::Texts TypedText::TextsNow() const {
    Texts texts;
    for (const auto* edit : dialog_.findChildren<QLineEdit*>()) texts[edit] = edit->text();
    for (const auto* edit : dialog_.findChildren<QPlainTextEdit*>()) {
        texts[edit] = edit->toPlainText();
    }
    for (const auto* list : dialog_.findChildren<QListWidget*>()) {
        for (int i = 0; i < list->count(); ++i) texts[list] += list->item(i)->text() + '\n';
    }
    return texts;
}

bool TypedText::IsOneLost() const {
    if (typed_->isEmpty()) return false;
    const Texts now = TextsNow();
    for (auto text = now.begin(); text != now.end(); ++text) {
        // What was typed may be in a list by now.
        const bool counts =
            typed_->contains(text.key()) || qobject_cast<const QListWidget*>(text.key()) != nullptr;
        if (counts && text.value() != first_.value(text.key())) return true;
    }
    return false;
}

bool TypedText::MayBeLost() const {
    if (!IsOneLost()) return true;
    QMessageBox box(QMessageBox::Warning, QCoreApplication::applicationName(),
                    "What you have typed here will be lost.\n\nDo you want to close \"" +
                        dialog_.windowTitle() + "\" anyway?",
                    QMessageBox::Yes | QMessageBox::No, &dialog_);
    box.setObjectName("Message");
    box.setTextFormat(Qt::PlainText);
    box.setDefaultButton(QMessageBox::No);
    box.setEscapeButton(QMessageBox::No);
    return box.exec() == QMessageBox::Yes;
}

}  // namespace quorrel
