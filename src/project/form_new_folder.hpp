// The dialog that adds a folder while a topic is made.
#pragma once

#include "platform/controls/control.hpp"
#include "platform/screen.hpp"

namespace quorrel {

class FormNewTopic;
struct MainForm;

class FormNewFolder : public Form {
  public:
    static constexpr std::string_view kCaption = "New Folder";

    FormNewFolder(MainForm& main, FormNewTopic& topic);
    [[nodiscard]] std::string_view Name() const override { return "FormNewFolder"; }

    TextBox Text1;  // the folder's name
    Control OKButton;

    /// Makes the folder below the one that the new topic's dialog shows, and shows it there.
    void OKButton_Click();
    void CancelButton_Click() { closed = true; }
    /// The folder that the new one is made in, as the user of this system writes it.
    [[nodiscard]] std::string NativeParent() const;

  private:
    MainForm& main_;
    FormNewTopic& topic_;
};

}  // namespace quorrel
