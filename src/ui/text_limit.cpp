#include "ui/text_limit.hpp"

#include <QApplication>
#include <QLineEdit>
#include <QLocale>
#include <QPlainTextEdit>
#include <QTextCursor>
#include <QToolTip>
#include <QValidator>

#include <algorithm>
#include <utility>

#include "platform/text.hpp"

namespace quorrel {
namespace {

/// What a character of a text on several lines counts.
std::size_t LengthOf(QChar c) {
    if (c == u'\n') return 2;
    return c.isLowSurrogate() ? 0 : 1;
}

std::size_t LengthOf(const QString& lines) {
    std::size_t length = 0;
    for (const QChar c : lines) length += LengthOf(c);
    return length;
}

void TellLimit(QWidget* field, const QRect& caret, std::size_t limit) {
    QApplication::beep();
    QToolTip::showText(field->mapToGlobal(caret.bottomLeft()),
                       "No more than " + QLocale::c().toString(static_cast<qulonglong>(limit)) +
                           " characters can be kept here.",
                       field);
}

class LengthValidator : public QValidator {
  public:
    LengthValidator(QLineEdit* edit, const TextBox& control,
                    std::function<std::string(const QString&)> text_of)
        : QValidator(edit), control_(control), text_of_(std::move(text_of)) {}

    State validate(QString& input, int&) const override {
        const std::size_t length = CountCharacters(text_of_(input));
        const std::size_t before = CountCharacters(control_.Text());
        return length <= std::max(control_.max_length, before) ? Acceptable : Invalid;
    }

  private:
    const TextBox& control_;
    std::function<std::string(const QString&)> text_of_;
};

/// Takes back what was entered last, from its end on, until the text is no longer than `limit`.
void CutWhatWasEntered(QPlainTextEdit* edit, std::size_t limit) {
    const QString text = edit->toPlainText();
    QTextCursor cursor = edit->textCursor();
    const int end = cursor.position();
    int begin = end;
    for (std::size_t length = LengthOf(text); length > limit && begin > 0;) {
        length -= LengthOf(text[--begin]);
    }
    cursor.joinPreviousEditBlock();
    cursor.setPosition(begin, QTextCursor::KeepAnchor);
    cursor.removeSelectedText();
    cursor.endEditBlock();
}

}  // namespace

void LimitLength(QLineEdit* edit, const TextBox& control,
                 std::function<std::string(const QString&)> text_of) {
    if (control.max_length == 0) return;
    edit->setValidator(new LengthValidator(edit, control, std::move(text_of)));
    QObject::connect(edit, &QLineEdit::inputRejected, edit,
                     [edit, limit = control.max_length] { TellLimit(edit, edit->rect(), limit); });
}

void LimitLength(QPlainTextEdit* edit, const TextBox& control) {
    const auto cut = [edit, &control] {
        const std::size_t limit = control.max_length;
        const std::size_t before = CountCharacters(control.Text());
        if (LengthOf(edit->toPlainText()) <= std::max(limit, before)) return;
        CutWhatWasEntered(edit, limit);
        TellLimit(edit, edit->cursorRect(), limit);
    };
    QObject::connect(edit, &QPlainTextEdit::textChanged, edit, cut);
}

}  // namespace quorrel
