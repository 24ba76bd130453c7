// The view of FormRecover.
#pragma once

#include "project/form_recover.hpp"
#include "ui/form_dialog.hpp"

class QTreeWidget;

namespace quorrel {

class RecoverDialog : public FormDialog {
    Q_OBJECT
  public:
    RecoverDialog(FormRecover& form, QWidget* parent);

  private:
    void MakeList();
    void Cancel() override { form_.CancelButton_Click(); }

    FormRecover& form_;
    QTreeWidget* list_;
};

}  // namespace quorrel
