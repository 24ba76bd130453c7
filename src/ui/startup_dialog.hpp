// The view of FormStartup.
#pragma once

#include <QDialog>

#include <functional>

#include "app/form_startup.hpp"
#include "ui/window_settings.hpp"

class QLayout;

namespace quorrel {

class ReportList;

class StartupDialog : public QDialog {
    Q_OBJECT
  public:
    StartupDialog(FormStartup& form, QWidget* parent);

    void done(int result) override;
    void reject() override;

  private:
    void MakeList();
    QLayout* MakeNewProject();
    QLayout* MakeButtons();
    /// Runs an event routine of the form and closes if it says so.
    void Run(const std::function<void()>& routine);

    FormStartup& form_;
    WindowSettings settings_;
    ReportList* list_;
};

}  // namespace quorrel
