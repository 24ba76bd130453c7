// What the logic asks of the screen: dialogs, questions, the pointer.
#pragma once

#include <memory>
#include <string>
#include <string_view>
#include <vector>

namespace quorrel {

/// A dialog's logic: control models and event routines. The screen shows it.
class Form {
  public:
    virtual ~Form() = default;
    /// The dialog's name, by which a screen finds the view that shows it.
    [[nodiscard]] virtual std::string_view Name() const = 0;
    /// Runs when the dialog has been closed, however that came about.
    virtual void Unload() {}

    /// The view closes itself when this is set.
    bool closed = false;
};

enum class MessageButtons { kOk, kYesNo, kYesNoCancel };
enum class MessageIcon { kNone, kInformation, kExclamation, kCritical, kQuestion };
enum class MessageAnswer { kOk, kCancel, kYes, kNo };

struct Message {
    std::string text;
    std::string caption;
    MessageButtons buttons = MessageButtons::kOk;
    MessageIcon icon = MessageIcon::kNone;
    /// What the Enter key answers.
    MessageAnswer default_answer = MessageAnswer::kYes;
    /// It comes by itself, maybe in the middle of a word: keys that were meant for a text do not
    /// answer it.
    bool unasked = false;
};

/// A request for a file. The filter has the classic form "Text|*.a;*.b|Text|*.c".
struct FileDialog {
    std::string title;
    std::string filter;
    std::string folder;  // where to begin; a Windows path, may be empty
    bool save = false;   // for a new file, otherwise the file must exist
    // Whether the dialog itself asks before it gives a file that exists, for saving.
    bool asks_to_overwrite = true;
};

enum class Pointer { kNormal, kHourglass };

class Screen {
  public:
    virtual ~Screen() = default;

    /// Shows the form and returns when it is closed. Form::Unload has run then.
    virtual void ShowModal(Form& form) = 0;
    /// Shows the form beside the window and returns at once. The screen keeps it until it is
    /// closed; Form::Unload has run then. Where one of its name is shown already, that one comes
    /// to the front instead.
    virtual void Show(std::unique_ptr<Form> form) = 0;
    virtual MessageAnswer ShowMessage(const Message& message) = 0;
    /// The chosen file as a Windows path, or an empty string.
    virtual std::string ChooseFile(const FileDialog& dialog) = 0;
    virtual void SetPointer(Pointer pointer) = 0;
    /// Lets pending events run.
    virtual void DoEvents() = 0;
    virtual void Beep() = 0;
    virtual void SetClipboardText(std::string_view text) = 0;
};

/// Shows the hourglass while it lives.
class Hourglass {
  public:
    explicit Hourglass(Screen& screen) : screen_(screen) {
        screen_.SetPointer(Pointer::kHourglass);
    }
    Hourglass(const Hourglass&) = delete;
    Hourglass& operator=(const Hourglass&) = delete;
    ~Hourglass() { screen_.SetPointer(Pointer::kNormal); }

  private:
    Screen& screen_;
};

}  // namespace quorrel
