// The view of FormProjectSettings.
#pragma once

#include "project/form_project_settings.hpp"
#include "ui/dialog_fields.hpp"
#include "ui/form_dialog.hpp"

class QTabWidget;
class QVBoxLayout;

namespace quorrel {

class ProjectSettingsDialog : public FormDialog {
    Q_OBJECT
  public:
    ProjectSettingsDialog(FormProjectSettings& form, QWidget* parent);

  protected:
    void Cancel() override { form_.cmdCancel_Click(); }

  private:
    QWidget* MakeFilesPage();
    QWidget* MakeProjectPage();
    QWidget* MakeToolsPage();
    QWidget* MakeImagesPage();
    void AddTool(QVBoxLayout* page, QWidget* edit, Control& label, const char* label_name,
                 QPushButton* choose);
    void FollowPage();
    [[nodiscard]] PathForms Paths() const;

    FormProjectSettings& form_;
    QTabWidget* tabs_;
};

}  // namespace quorrel
