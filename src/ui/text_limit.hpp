// Fields that take no more than can be kept.
#pragma once

#include <QString>

#include <functional>
#include <string>

#include "platform/controls/control.hpp"

class QLineEdit;
class QPlainTextEdit;

namespace quorrel {

/// What would make the control's text longer than its max_length is not taken, and the user is
/// told. A text that is longer already can be made shorter. `text_of` gives the control's text for
/// what stands in the field.
void LimitLength(QLineEdit* edit, const TextBox& control,
                 std::function<std::string(const QString&)> text_of);
/// The same for several lines, whose ends count as two characters each. Of a text that is pasted
/// the beginning is taken, as far as it fits.
void LimitLength(QPlainTextEdit* edit, const TextBox& control);

}  // namespace quorrel
