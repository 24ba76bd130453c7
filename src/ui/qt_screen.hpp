// The screen: dialogs, questions and the pointer in the toolkit.
#pragma once

#include <QWidget>

#include <functional>
#include <memory>

#include "platform/file_system.hpp"
#include "platform/screen.hpp"

namespace quorrel {

class QtScreen : public Screen {
  public:
    explicit QtScreen(FileSystem& files) : files_(files) {}

    void ShowModal(Form& form) override;
    void Show(std::unique_ptr<Form> form) override;
    MessageAnswer ShowMessage(const Message& message) override;
    std::string ChooseFile(const FileDialog& dialog) override;
    void SetPointer(Pointer pointer) override;
    void DoEvents() override;
    void Beep() override;
    void SetClipboardText(std::string_view text) override;

    /// The user asks for help in the dialog of this form.
    std::function<void(std::string_view form)> help_wanted;

  private:
    /// A dialog is used with the normal pointer, whatever runs behind it.
    class NormalPointer;
    [[nodiscard]] QString StartFolder(const FileDialog& dialog) const;

    FileSystem& files_;
    int hourglasses_ = 0;
};

}  // namespace quorrel
