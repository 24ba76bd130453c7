// The view of FormAddGraphic.
#pragma once

#include "project/form_add_graphic.hpp"
#include "ui/form_dialog.hpp"

namespace quorrel {

class AddGraphicDialog : public FormDialog {
    Q_OBJECT
  public:
    AddGraphicDialog(FormAddGraphic& form, QWidget* parent);

  protected:
    void Cancel() override { form_.CancelButton_Click(); }

  private:
    FormAddGraphic& form_;
};

}  // namespace quorrel
