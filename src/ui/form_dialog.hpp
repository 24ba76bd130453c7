// What the views of the forms share.
#pragma once

#include <QDialog>

#include <functional>
#include <optional>

#include "platform/screen.hpp"
#include "ui/typed_text.hpp"

class QAbstractButton;
class QPushButton;

namespace quorrel {

/// A dialog that closes when its form says so, and remembers its size.
class FormDialog : public QDialog {
    Q_OBJECT
  public:
    FormDialog(Form& form, const QString& caption, QWidget* parent);

    void done(int result) override;
    /// The Escape key and the window's own way to close it. Asks before what was typed is lost;
    /// the Cancel button says what it does, and does not.
    void reject() override;

  protected:
    /// Runs an event routine of the form.
    void Run(const std::function<void()>& routine);
    /// Connects a button to one.
    void OnClick(QAbstractButton* button, std::function<void()> routine);
    /// What the form does when the user leaves without the dialog's work done.
    virtual void Cancel() = 0;

    /// The row of buttons at the bottom, with the two names; `ok` is the default button.
    QWidget* MakeButtons(const QString& ok_name, std::function<void()> ok,
                         const QString& cancel_name);
    /// The default button, once it is made.
    [[nodiscard]] QPushButton* OkButton() const { return ok_; }
    /// The dialog is made: it gets the size that is remembered under `name`, or one as large as
    /// `otherwise` at least where the screen has room for it.
    void RestoreSize(const QString& name, QSize otherwise);

  private:
    void Leave();

    Form& form_;
    QPushButton* ok_ = nullptr;
    QWidget* buttons_ = nullptr;
    std::optional<TypedText> typed_;
    QString size_name_;
};

}  // namespace quorrel
