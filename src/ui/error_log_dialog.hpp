// The view of FormErrorLog.
#pragma once

#include <QDialog>

#include "app/form_error_log.hpp"

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

    FormErrorLog& form_;
    QPlainTextEdit* text_;
};

}  // namespace quorrel
