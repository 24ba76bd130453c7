// The view of FormSettings.
#pragma once

#include <QDialog>

#include "app/form_settings.hpp"

class QLayout;

namespace quorrel {

class SettingsDialog : public QDialog {
    Q_OBJECT
  public:
    SettingsDialog(FormSettings& form, QWidget* parent);

    void reject() override;

  private:
    QLayout* MakePathRow();
    QWidget* MakeButtons();

    FormSettings& form_;
};

}  // namespace quorrel
