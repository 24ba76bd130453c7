// The dialog that gives a picture of the project a map id.
#pragma once

#include <string>
#include <string_view>

#include "platform/controls/control.hpp"
#include "platform/controls/list_view.hpp"
#include "platform/screen.hpp"

namespace quorrel {

struct MainForm;

class FormAddGraphic : public Form {
  public:
    static constexpr std::string_view kCaption = "Add Project Icon/Graphic";

    /// `graphics` takes the new row: the map id, and the path as its sub-item 1.
    FormAddGraphic(MainForm& main, ListView& graphics);
    [[nodiscard]] std::string_view Name() const override { return "FormAddGraphic"; }

    TextBox EditPath;  // relative to the project
    TextBox EditMapID;
    Control Command1;  // "Select >>"

    void Command1_Click();
    void OKButton_Click();
    void CancelButton_Click() { closed = true; }

    /// The path as the user of this system writes it, and back; a relative one stays relative.
    [[nodiscard]] std::string NativePath(std::string_view path) const;
    [[nodiscard]] std::string WindowsPath(std::string_view native) const;

  private:
    void Refuse(std::string_view text, const Control& control);

    MainForm& main_;
    ListView& graphics_;
};

}  // namespace quorrel
