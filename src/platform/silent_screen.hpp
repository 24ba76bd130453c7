// A screen that shows nothing and answers like someone who only looks: every question is
// cancelled or denied, every dialog closed.
#pragma once

#include "platform/screen.hpp"

namespace quorrel {

class SilentScreen : public Screen {
  public:
    void ShowModal(Form& form) override { form.Unload(); }
    MessageAnswer ShowMessage(const Message& message) override {
        switch (message.buttons) {
            case MessageButtons::kOk:
                return MessageAnswer::kOk;
            case MessageButtons::kYesNo:
                return MessageAnswer::kNo;
            case MessageButtons::kYesNoCancel:
                return MessageAnswer::kCancel;
        }
        return MessageAnswer::kCancel;
    }
    std::string ChooseFile(const FileDialog&) override { return {}; }
    void SetPointer(Pointer) override {}
    void DoEvents() override {}
    void Beep() override {}
    void SetClipboardText(std::string_view) override {}
};

}  // namespace quorrel
