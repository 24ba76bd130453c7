#include "ui/dialog_fields.hpp"

#include <QComboBox>
#include <QCompleter>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QPushButton>
#include <QSignalBlocker>

#include "ui/listen.hpp"
#include "ui/qt_text.hpp"
#include "ui/text_limit.hpp"

namespace quorrel {
namespace {

/// Shows lines and the selected one.
template <typename List>
QListWidget* MakeListOf(const char* name, List& control,
                        std::function<std::string(const std::string&)> shown) {
    auto* list = new QListWidget;
    list->setObjectName(name);
    FollowControl(list, control);
    const auto show = [list, &control, shown = std::move(shown)] {
        const QSignalBlocker quiet(list);
        QStringList lines;
        for (const std::string& line : control.List()) lines << ToQt(shown(line));
        QStringList before;
        for (int i = 0; i < list->count(); ++i) before << list->item(i)->text();
        if (lines != before) {
            list->clear();
            list->addItems(lines);
        }
        list->setCurrentRow(control.ListIndex);
    };
    show();
    Listen(control.changed, list, show);
    QObject::connect(list, &QListWidget::currentRowChanged, list,
                     [&control](int row) { control.ListIndex = row; });
    return list;
}

}  // namespace

QLineEdit* MakeEdit(const char* name, TextBox& control) {
    auto* edit = new QLineEdit;
    edit->setObjectName(name);
    edit->setReadOnly(control.Locked());
    FollowTextBox(edit, control);
    return edit;
}

QLineEdit* MakePathEdit(const char* name, TextBox& control, PathForms forms) {
    auto* edit = new QLineEdit;
    edit->setObjectName(name);
    edit->setReadOnly(control.Locked());
    FollowControl(edit, control);
    LimitLength(edit, control,
                [forms](const QString& text) { return forms.windows(FromQt(text)); });
    const auto show = [edit, &control, forms] {
        const QString text = ToQt(forms.native(control.Text()));
        // What is being typed stays as it is while it means the same path.
        const bool is_same = forms.windows(FromQt(edit->text())) == control.Text();
        if (is_same || edit->text() == text) return;
        const QSignalBlocker quiet(edit);
        edit->setText(text);
    };
    show();
    Listen(control.changed, edit, show);
    QObject::connect(edit, &QLineEdit::textChanged, edit, [&control, forms](const QString& text) {
        control.Text = forms.windows(FromQt(text));
    });
    return edit;
}

QComboBox* MakeTextCombo(const char* name, TextComboBox& control) {
    auto* box = new QComboBox;
    box->setObjectName(name);
    box->setEditable(true);
    box->setInsertPolicy(QComboBox::NoInsert);
    FollowControl(box, control);
    // Completed in place, "a" would become "about" by the Enter key.
    box->completer()->setCompletionMode(QCompleter::PopupCompletion);
    QStringList items;
    for (const std::string& item : control.List()) items += ToQt(item);
    box->addItems(items);
    const auto show = [box, &control] {
        const QString text = ToQt(control.Text());
        if (box->currentText() != text) box->setEditText(text);
    };
    show();
    Listen(control.changed, box, show);
    QObject::connect(box, &QComboBox::editTextChanged, box,
                     [&control](const QString& text) { control.Text = FromQt(text); });
    return box;
}

QListWidget* MakeList(const char* name, ListBox& control) {
    return MakeListOf(name, control, [](const std::string& line) { return line; });
}

QListWidget* MakeList(const char* name, ComboBox& control,
                      std::function<std::string(const std::string&)> shown) {
    return MakeListOf(name, control, std::move(shown));
}

QPushButton* MakeButton(const char* name, const QString& caption, Control& control) {
    auto* button = new QPushButton(caption);
    button->setObjectName(name);
    button->setAutoDefault(false);
    FollowButton(button, control);
    return button;
}

QLabel* MakeLabel(const QString& caption, QWidget* buddy) {
    auto* label = new QLabel(caption);
    label->setBuddy(buddy);
    // Screen readers find the label of some kinds of fields only.
    if (buddy->accessibleName().isEmpty()) {
        QString name = caption;
        buddy->setAccessibleName(name.remove('&').remove(':'));
    }
    return label;
}

QLabel* MakeLabel(const char* name, Control& control, QWidget* buddy, char key) {
    QString caption = WithoutMnemonics(ToQt(control.Caption()));
    caption.insert(qMax<qsizetype>(0, caption.indexOf(QLatin1Char(key))), '&');
    QLabel* label = MakeLabel(caption + ":", buddy);
    label->setObjectName(name);
    FollowControl(label, control);
    return label;
}

QLabel* MakeNote(const char* name, Control& control) {
    auto* note = new QLabel(ToQt(control.Caption()));
    note->setObjectName(name);
    note->setTextFormat(Qt::PlainText);
    note->setWordWrap(true);
    FollowControl(note, control);
    return note;
}

}  // namespace quorrel
