// The view of FormSettings.
#pragma once

#include <QDialog>

#include <optional>

#include "app/form_settings.hpp"
#include "ui/typed_text.hpp"

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
    void Leave();

    FormSettings& form_;
    std::optional<TypedText> typed_;
};

}  // namespace quorrel
