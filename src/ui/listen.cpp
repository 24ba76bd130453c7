#include "ui/listen.hpp"

#include <QSignalBlocker>

#include "ui/qt_text.hpp"
#include "ui/text_limit.hpp"

namespace quorrel {

void FollowControl(QWidget* widget, Control& control) {
    const auto show = [widget, &control] {
        widget->setEnabled(control.Enabled());
        widget->setVisible(control.Visible());
        const std::string& tip = control.ToolTipText;
        if (tip.empty()) return;
        widget->setToolTip(PlainToolTip(ToQt(tip)));
        // A screen reader would read the tool tip's markup out.
        widget->setAccessibleDescription(ToQt(tip));
    };
    show();
    Listen(control.changed, widget, show);
    Listen(control.focus_wanted, widget, [widget] { widget->setFocus(); });
}

void FollowButton(QAbstractButton* button, Control& control) {
    FollowControl(button, control);
    const auto show = [button, &control] {
        const std::string& caption = control.Caption;
        if (!caption.empty()) button->setText(ToQt(caption));
    };
    show();
    Listen(control.changed, button, show);
}

void FollowCheckBox(QAbstractButton* box, CheckBox& control) {
    FollowButton(box, control);
    const auto show = [box, &control] { box->setChecked(control.Value()); };
    show();
    Listen(control.changed, box, show);
    QObject::connect(box, &QAbstractButton::toggled, box,
                     [&control](bool on) { control.Value = on; });
}

void FollowTextBox(QLineEdit* edit, TextBox& control) {
    FollowControl(edit, control);
    LimitLength(edit, control, FromQt);
    const auto show = [edit, &control] {
        const QString text = ToQt(control.Text());
        // Setting an equal text would move the cursor under the user's hands.
        if (edit->text() == text) return;
        edit->setText(text);
        // Of a text that is longer than the field its beginning tells more than its end.
        const bool fits = edit->fontMetrics().horizontalAdvance(text) < edit->width();
        if (!fits && !edit->hasFocus()) edit->setCursorPosition(0);
    };
    show();
    Listen(control.changed, edit, show);
    QObject::connect(edit, &QLineEdit::textChanged, edit,
                     [&control](const QString& text) { control.Text = FromQt(text); });
}

void FollowComboBox(QComboBox* box, ComboBox& control) {
    FollowControl(box, control);
    const auto show = [box, &control] {
        const QSignalBlocker quiet(box);
        QStringList lines;
        for (const std::string& line : control.List()) lines << ToQt(line);
        QStringList shown;
        for (int i = 0; i < box->count(); ++i) shown << box->itemText(i);
        if (lines != shown) {
            box->clear();
            box->addItems(lines);
        }
        box->setCurrentIndex(control.ListIndex);
    };
    show();
    Listen(control.changed, box, show);
    QObject::connect(box, &QComboBox::currentIndexChanged, box,
                     [&control](int index) { control.ListIndex = index; });
}

}  // namespace quorrel
