#include "ui/find_bar.hpp"

#include <QCheckBox>
#include <QHBoxLayout>
#include <QKeyEvent>
#include <QLabel>
#include <QLineEdit>
#include <QToolButton>

#include "ui/metrics.hpp"
#include "ui/theme_icon.hpp"

namespace quorrel {
namespace {

QToolButton* AddButton(FindBar* bar, const char* name, const char* icon, const QString& text,
                       const QString& tip) {
    auto* button = new QToolButton(bar);
    button->setObjectName(name);
    button->setIcon(ThemeIcon(icon));
    button->setText(text);
    button->setToolTip(tip);
    button->setAccessibleName(text);
    button->setAutoRaise(true);
    if (button->icon().isNull()) button->setToolButtonStyle(Qt::ToolButtonTextOnly);
    bar->layout()->addWidget(button);
    return button;
}

}  // namespace

FindBar::FindBar(QWidget* parent)
    : QWidget(parent),
      edit_(new QLineEdit(this)),
      match_case_(new QCheckBox("Match &case", this)),
      whole_words_(new QCheckBox("&Whole words", this)),
      message_(new QLabel(this)) {
    setObjectName("FindBar");
    edit_->setObjectName("FindText");
    edit_->setClearButtonEnabled(true);
    match_case_->setObjectName("FindMatchCase");
    whole_words_->setObjectName("FindWholeWords");
    message_->setObjectName("FindMessage");
    message_->setTextFormat(Qt::PlainText);
    // It may be cut off rather than make the pane wider.
    message_->setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);

    auto* label = new QLabel("&Find:", this);
    label->setBuddy(edit_);
    auto* row = new QHBoxLayout(this);
    row->setContentsMargins(6, 3, 6, 3);
    row->addWidget(label);
    row->addWidget(edit_, 2);
    QToolButton* previous =
        AddButton(this, "FindPrevious", "go-up", "Previous", "Find previous (Shift+F3)");
    QToolButton* next = AddButton(this, "FindNext", "go-down", "Next", "Find next (F3)");
    row->addWidget(match_case_);
    row->addWidget(whole_words_);
    row->addWidget(message_, 3);
    QToolButton* close = AddButton(this, "FindClose", "window-close", "Close", "Close (Esc)");

    connect(edit_, &QLineEdit::textChanged, this, [this] { emit Find(Step::kHere); });
    for (QCheckBox* box : {match_case_, whole_words_}) {
        connect(box, &QCheckBox::toggled, this, [this] { emit Find(Step::kHere); });
    }
    connect(next, &QToolButton::clicked, this, [this] { Repeat(Step::kNext); });
    connect(previous, &QToolButton::clicked, this, [this] { Repeat(Step::kPrevious); });
    connect(close, &QToolButton::clicked, this, &FindBar::Close);
    for (QWidget* child : findChildren<QWidget*>()) child->installEventFilter(this);
    hide();
}

void FindBar::Serve(QWidget* text) {
    text_ = text;
    text->installEventFilter(this);
}

void FindBar::Open(const QString& selected) {
    const bool is_short = selected.size() <= static_cast<qsizetype>(kShownCharacters);
    const bool is_line = !selected.contains('\n') && !selected.contains(QChar::ParagraphSeparator);
    ShowMessage({});
    show();
    if (!selected.isEmpty() && is_short && is_line) {
        const QSignalBlocker no_search(edit_);
        edit_->setText(selected);
    }
    edit_->selectAll();
    edit_->setFocus(Qt::ShortcutFocusReason);
}

void FindBar::Close() {
    hide();
    if (!text_.isNull()) text_->setFocus(Qt::OtherFocusReason);
}

void FindBar::Repeat(Step step) {
    if (Text().isEmpty()) {
        emit OpenRequested();
    } else {
        emit Find(step);
    }
}

QString FindBar::Text() const {
    return edit_->text();
}

bool FindBar::MatchCase() const {
    return match_case_->isChecked();
}

bool FindBar::WholeWords() const {
    return whole_words_->isChecked();
}

void FindBar::ShowMessage(const QString& message) {
    message_->setText(message);
    message_->setToolTip(message);
}

QString FindBar::NotFoundMessage() {
    return "Not found";
}

QString FindBar::WrappedMessage(Step step) {
    return step == Step::kPrevious ? "Went on from the end" : "Went on from the beginning";
}

FindBar::Key FindBar::KeyOf(const QKeyEvent& event, bool in_bar) const {
    if (event.matches(QKeySequence::Find)) return Key::kOpen;
    const bool has_shift = event.modifiers().testFlag(Qt::ShiftModifier);
    const bool has_others = (event.modifiers() & ~(Qt::ShiftModifier | Qt::KeypadModifier)) != 0;
    if (has_others) return Key::kNone;
    const bool is_enter = event.key() == Qt::Key_Return || event.key() == Qt::Key_Enter;
    if (event.key() == Qt::Key_F3 || (is_enter && in_bar && edit_->hasFocus())) {
        return has_shift ? Key::kPrevious : Key::kNext;
    }
    if (event.key() == Qt::Key_Escape && isVisible()) return Key::kClose;
    return Key::kNone;
}

void FindBar::Work(Key key) {
    switch (key) {
        case Key::kOpen:
            emit OpenRequested();
            break;
        case Key::kNext:
            Repeat(Step::kNext);
            break;
        case Key::kPrevious:
            Repeat(Step::kPrevious);
            break;
        case Key::kClose:
            Close();
            break;
        case Key::kNone:
            break;
    }
}

bool FindBar::eventFilter(QObject* watched, QEvent* event) {
    const bool is_override = event->type() == QEvent::ShortcutOverride;
    if (!is_override && event->type() != QEvent::KeyPress) return false;
    const Key key = KeyOf(static_cast<QKeyEvent&>(*event), watched != text_);
    if (key == Key::kNone) return false;
    // The window may have the same key for a command of its own; here it is the text's.
    if (is_override) {
        event->accept();
    } else {
        Work(key);
    }
    return true;
}

}  // namespace quorrel
