// The dialog for the program's own settings.
#pragma once

#include "platform/controls/control.hpp"
#include "platform/screen.hpp"

namespace quorrel {

struct MainForm;

class FormSettings : public Form {
  public:
    static constexpr std::string_view kCaption = "Quorrel Settings";

    explicit FormSettings(MainForm& main);
    [[nodiscard]] std::string_view Name() const override { return "FormSettings"; }

    CheckBox CheckExtEditor;
    TextBox EditEditorPath;  // a native path, perhaps with arguments

    void Command2_Click();  // "..."
    void OKButton_Click();
    void CancelButton_Click() { closed = true; }

  private:
    MainForm& main_;
};

/// Shows or hides what belongs to topics being edited in a program of the author's choice.
void ApplyExternalEditorMode(MainForm& main);

/// The command of the Tools menu.
void mnuqrsettings_Click(MainForm& main);

}  // namespace quorrel
