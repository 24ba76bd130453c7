// References from one keyword to another.
#pragma once

#include <string_view>

#include "platform/controls/control.hpp"
#include "platform/screen.hpp"

namespace quorrel {

struct MainForm;

/// Shows FormSeeAlso beside the window.
void CommandSeeAlso_Click(MainForm& main);
void popiaddseealso_Click(MainForm& main);

/// Adds keywords that jump to the one selected in the index. It stays open meanwhile.
class FormSeeAlso : public Form {
  public:
    static constexpr std::string_view kCaption = "Add \"See Also\" Index Keyword";
    static constexpr std::string_view kHint =
        "In the Index pane on the left, select the target keyword that you want to make a \"see "
        "also\" reference to.";
    static constexpr std::string_view kKeyLabel =
        "Enter the new keyword (which will jump to the selected keyword) below:";

    explicit FormSeeAlso(MainForm& main);
    [[nodiscard]] std::string_view Name() const override { return "FormSeeAlso"; }

    TextBox EditMainKey;
    Control Command1;  // "Add to Index"
    Control CancelButton;

    /// Refuses where no target is selected or the keyword is in the index already.
    void Command1_Click();
    void CancelButton_Click() { closed = true; }

    [[nodiscard]] MainForm& Main() { return main_; }

  private:
    MainForm& main_;
};

}  // namespace quorrel
