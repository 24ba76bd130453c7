// The view of FormErrorLog.
#pragma once

#include <QDialog>

#include <optional>

#include "app/form_error_log.hpp"
#include "ui/typed_text.hpp"

class QPlainTextEdit;

namespace quorrel {

class ErrorLogDialog : public QDialog {
    Q_OBJECT
  public:
    ErrorLogDialog(FormErrorLog& form, QWidget* parent);
    ~ErrorLogDialog() override;

    void reject() override;

  private:
    QWidget* MakeButtons();
    void Finish();
    void Leave();

    FormErrorLog& form_;
    QPlainTextEdit* text_;
    std::optional<TypedText> typed_;
};

}  // namespace quorrel
