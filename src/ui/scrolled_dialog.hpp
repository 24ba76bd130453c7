// Dialogs on small screens.
#pragma once

#include <QSize>

class QDialog;
class QMessageBox;
class QWidget;

namespace quorrel {

/// Puts all of the dialog but its row of buttons into an area that scrolls where there is not room
/// enough; the buttons stay in reach. The dialog has its layout, with the row in it.
void ScrollAllBut(QWidget* buttons, QDialog& dialog);

/// `size`, or as much of it as the screen has room for with a frame around.
[[nodiscard]] QSize FittingSize(const QWidget& window, QSize size);

/// Lets a message scroll that is too long for the screen.
void ScrollLongText(QMessageBox& box);

}  // namespace quorrel
