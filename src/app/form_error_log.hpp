// Text files of the project in a plain box: the compiler's messages, the style sheet, the script.
#pragma once

#include <string>

#include "platform/controls/control.hpp"
#include "platform/screen.hpp"

namespace quorrel {

struct MainForm;

enum class ErrorLogMode { kMessages = 0, kStyleSheet = 1, kScript = 2 };

class FormErrorLog : public Form {
  public:
    FormErrorLog(MainForm& main, ErrorLogMode mode);
    [[nodiscard]] std::string_view Name() const override { return "FormErrorLog"; }

    std::string Caption = "Compiler Messages";
    TextBox Text1;     // lines ended by CR LF; shown in a font of one width
    Control Command1;  // "Close", or "Ok" where the file can be edited
    Control Command2;  // "Cancel"
    Control Command3;  // "Help"
    bool Command1IsDefault = true;

    /// Writes the file back if it is one to edit, and closes. A file that cannot be written is
    /// told, and the form stays.
    void Command1_Click();
    void Command2_Click() { closed = true; }
    void Command3_Click();

  private:
    void LetEdit();
    void Read();

    MainForm& main_;
    ErrorLogMode mode_;
    std::string path_;  // empty without a project
};

/// The commands of the Tools menu.
void editcssfile_Click(MainForm& main);
void editjsfile_Click(MainForm& main);

}  // namespace quorrel
