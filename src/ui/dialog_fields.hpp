// Fields of dialogs on their control models.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/controls/combo_box.hpp"
#include "platform/controls/control.hpp"
#include "platform/controls/list_box.hpp"

class QComboBox;
class QLabel;
class QLineEdit;
class QListWidget;
class QPushButton;
class QString;
class QWidget;

namespace quorrel {

/// A field with the control's name, text and state.
QLineEdit* MakeEdit(const char* name, TextBox& control);

/// How a path is shown and what a typed one means.
struct PathForms {
    std::function<std::string(std::string_view)> native;
    std::function<std::string(std::string_view)> windows;
};
/// A field that shows the path of the control as the user of this system writes it.
QLineEdit* MakePathEdit(const char* name, TextBox& control, PathForms forms);

/// A list that can be typed in.
QComboBox* MakeTextCombo(const char* name, TextComboBox& control);
/// Lists with one line selected. `shown` gives what is shown of a line.
QListWidget* MakeList(const char* name, ListBox& control);
QListWidget* MakeList(const char* name, ComboBox& control,
                      std::function<std::string(const std::string&)> shown);

/// A button that is never the default one.
QPushButton* MakeButton(const char* name, const QString& caption, Control& control);

/// A label that leads to its field, with "&" before the letter of the access key.
QLabel* MakeLabel(const QString& caption, QWidget* buddy);
/// The same with the caption and state of a control; the first letter is the access key, or the
/// first place of `key`.
QLabel* MakeLabel(const char* name, Control& control, QWidget* buddy, char key = '\0');
/// A sentence over several lines that leads nowhere.
QLabel* MakeNote(const char* name, Control& control);

}  // namespace quorrel
