// The view of FormCreateProject.
#pragma once

#include "project/form_create_project.hpp"
#include "ui/form_dialog.hpp"

class QLayout;

namespace quorrel {

class CreateProjectDialog : public FormDialog {
    Q_OBJECT
  public:
    CreateProjectDialog(FormCreateProject& form, QWidget* parent);

  protected:
    void Cancel() override { form_.CancelButton_Click(); }

  private:
    QLayout* MakeNotice();
    QLayout* MakeProject();

    FormCreateProject& form_;
};

}  // namespace quorrel
