// Connecting widgets to the signals of the control models.
#pragma once

#include <QAbstractButton>
#include <QComboBox>
#include <QLineEdit>
#include <QPointer>

#include <utility>

#include "platform/controls/combo_box.hpp"
#include "platform/controls/control.hpp"
#include "platform/controls/signal.hpp"

namespace quorrel {

/// Calls `work` on each emission for as long as `context` lives; the signal may live longer.
template <typename Work, typename... Arguments>
void Listen(Signal<Arguments...>& signal, QObject* context, Work work) {
    const QPointer<QObject> guard(context);
    signal.Connect([guard, work = std::move(work)](Arguments... arguments) {
        if (!guard.isNull()) work(arguments...);
    });
}

/// Shows what the logic says of a control: whether it is there and can be used, and whether it is
/// to have the keyboard.
void FollowControl(QWidget* widget, Control& control);
/// The same with the caption.
void FollowButton(QAbstractButton* button, Control& control);
/// The same with the value, both ways.
void FollowCheckBox(QAbstractButton* box, CheckBox& control);
void FollowTextBox(QLineEdit* edit, TextBox& control);
/// The same with the lines and the selected one.
void FollowComboBox(QComboBox* box, ComboBox& control);

}  // namespace quorrel
