// The view of FormNewFolder.
#pragma once

#include "project/form_new_folder.hpp"
#include "ui/form_dialog.hpp"

namespace quorrel {

class NewFolderDialog : public FormDialog {
    Q_OBJECT
  public:
    NewFolderDialog(FormNewFolder& form, QWidget* parent);

  protected:
    void Cancel() override { form_.CancelButton_Click(); }

  private:
    FormNewFolder& form_;
};

}  // namespace quorrel
