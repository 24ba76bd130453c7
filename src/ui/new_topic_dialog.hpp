// The view of FormNewTopic.
#pragma once

#include "project/form_new_topic.hpp"
#include "ui/form_dialog.hpp"

class QLayout;

namespace quorrel {

class NewTopicDialog : public FormDialog {
    Q_OBJECT
  public:
    NewTopicDialog(FormNewTopic& form, QWidget* parent);

  protected:
    void Cancel() override { form_.CancelCmd_Click(); }

  private:
    QLayout* MakeFields();
    QLayout* MakeFolders();
    QLayout* MakeTemplates();
    QWidget* MakeKeywords();
    QLayout* MakeKeywordFields();

    FormNewTopic& form_;
};

}  // namespace quorrel
