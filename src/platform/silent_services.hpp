// The services of a run that nobody watches.
#pragma once

#include <string>

#include "platform/screen.hpp"
#include "platform/surfaces.hpp"

namespace quorrel {

/// Shows nothing and answers like someone who only looks: every question is cancelled or denied,
/// every dialog closed.
class SilentScreen : public Screen {
  public:
    void ShowModal(Form& form) override { form.Unload(); }
    void Show(std::unique_ptr<Form> form) override { form->Unload(); }
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

/// A source view that only holds its text.
class PlainSource : public SourceEdit {
  public:
    std::string Text() const override { return text_; }
    void SetText(std::string_view text) override {
        text_ = text;
        if (Change) Change();
    }
    void ReplaceText(std::string_view text) override { SetText(text); }
    void SetReadOnly(bool on) override { is_read_only = on; }
    bool is_read_only = false;
    void SetFocus() override {}
    void Cut() override {}
    void Copy() override {}
    void Paste() override {}
    void Undo() override {}
    void Redo() override {}
    void SelectAll() override {}
    void Find() override {}
    void Print() override {}

  private:
    std::string text_;
};

class SilentBrowser : public WebBrowser {
  public:
    void Navigate(std::string_view) override {}
    void GoBack() override {}
    void Refresh() override {}
    void Stop() override {}
};

class SilentShell : public Shell {
  public:
    void Start(std::string_view, WindowStyle) override {}
};

}  // namespace quorrel
