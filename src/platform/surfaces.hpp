// What the logic asks of the source view, the browser pane and the system's shell.
#pragma once

#include <functional>
#include <string>
#include <string_view>

#include "platform/edit_surface.hpp"

namespace quorrel {

/// The source view: one plain text, coloured as HTML.
class SourceEdit {
  public:
    virtual ~SourceEdit() = default;
    [[nodiscard]] virtual std::string Text() const = 0;
    /// Line ends come back as they were set. Begins a new history of undo. Raises Change.
    virtual void SetText(std::string_view text) = 0;
    /// The same for another spelling of the text that is there: the caret stays in its line.
    virtual void ReplaceText(std::string_view text) = 0;
    /// Shows its text and takes none.
    virtual void SetReadOnly(bool on) = 0;
    virtual void SetFocus() = 0;

    virtual void Cut() = 0;
    virtual void Copy() = 0;
    virtual void Paste() = 0;
    virtual void Undo() = 0;
    virtual void Redo() = 0;
    virtual void SelectAll() = 0;
    virtual void Find() = 0;
    virtual void Print() = 0;

    /// The text has changed, by whomever.
    std::function<void()> Change;
};

/// The browser pane: scripts run in it.
class WebBrowser {
  public:
    virtual ~WebBrowser() = default;
    /// A Windows path, with "#" and a bookmark behind it if need be.
    virtual void Navigate(std::string_view target) = 0;
    virtual void GoBack() = 0;
    virtual void Refresh() = 0;
    virtual void Stop() = 0;
};

enum class WindowStyle { kNormal, kMinimized };

/// Starts other programs.
class Shell {
  public:
    virtual ~Shell() = default;
    /// Starts a command line and does not wait for it. Paths in it are Windows paths. Raises 53
    /// where the program is not found, 5 where it cannot be started.
    virtual void Start(std::string_view command_line, WindowStyle style) = 0;
};

}  // namespace quorrel
