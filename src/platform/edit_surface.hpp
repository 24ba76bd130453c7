// The WYSIWYG surface and its document objects, as the logic uses them. Every call is
// synchronous. Positions and lengths count characters.
#pragma once

#include <cstdint>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "platform/encoding.hpp"
#include "platform/surface_commands.hpp"

namespace quorrel {

class TextRange;

/// An element of the document. It stays valid while the document does; after that, or once the
/// element has left the document, calls raise 91. HTML is given with element names in upper case.
class Element {
  public:
    virtual ~Element() = default;
    [[nodiscard]] virtual std::string innerHTML() const = 0;
    [[nodiscard]] virtual std::string outerHTML() const = 0;
    virtual void SetOuterHTML(std::string_view html) = 0;
    /// `where` is "BeforeBegin", "AfterBegin", "BeforeEnd" or "AfterEnd"; raises 5 for another.
    virtual void insertAdjacentHTML(std::string_view where, std::string_view html) = 0;
    /// Null above the root.
    [[nodiscard]] virtual std::unique_ptr<Element> parentElement() const = 0;
    [[nodiscard]] virtual std::unique_ptr<TextRange> createTextRange() const = 0;
};

/// A stretch of the document. It is no selection until Select.
class TextRange {
  public:
    virtual ~TextRange() = default;
    [[nodiscard]] virtual std::string HTMLText() const = 0;
    [[nodiscard]] virtual std::string Text() const = 0;
    /// Replaces the stretch; the range is empty behind the new content then. One step of undo.
    virtual void pasteHTML(std::string_view html) = 0;
    /// The element that holds the whole range.
    [[nodiscard]] virtual std::unique_ptr<Element> parentElement() const = 0;
    virtual void collapse(bool to_start) = 0;
    /// Collapses the range (at its start for a negative count, at its end else) and moves it by
    /// `count` characters, as far as the body goes. Gives the characters it moved, with sign.
    virtual std::int64_t Move(std::string_view unit, std::int64_t count) = 0;
    /// Moves one edge. Gives the characters it moved, with sign.
    virtual std::int64_t moveStart(std::string_view unit, std::int64_t count) = 0;
    virtual std::int64_t moveEnd(std::string_view unit, std::int64_t count) = 0;
    /// Moves the range to the next hit within `count` characters (a negative count searches up).
    /// `flags`: 2 whole words, 4 match case.
    virtual bool findText(std::string_view text, std::int64_t count, int flags) = 0;
    virtual void Select() = 0;
    virtual void scrollIntoView() = 0;
};

/// A selected graphic, table or other object.
class ControlRange {
  public:
    virtual ~ControlRange() = default;
    [[nodiscard]] virtual std::unique_ptr<Element> commonParentElement() const = 0;
};

enum class SelectionType { kNone, kText, kControl };

/// What is selected on the surface.
class Selection {
  public:
    virtual ~Selection() = default;
    [[nodiscard]] virtual SelectionType Type() const = 0;
    /// Of a caret or a text; null for a control or where there is no document.
    [[nodiscard]] virtual std::unique_ptr<TextRange> createRange() const = 0;
    /// Null unless the type is kControl.
    [[nodiscard]] virtual std::unique_ptr<ControlRange> createControlRange() const = 0;
};

class Document {
  public:
    virtual ~Document() = default;
    [[nodiscard]] virtual Selection& selection() = 0;
    /// Null where there is no document.
    [[nodiscard]] virtual std::unique_ptr<Element> body() = 0;
};

/// Why a surface cannot take a file; the numbers that LoadDocument raises beside those of
/// FileSystem::ReadFile.
namespace surface_error {
inline constexpr int kFrameset = static_cast<int>(0x80100001);
inline constexpr int kServerScript = static_cast<int>(0x80100002);
}  // namespace surface_error

/// What a surface has left of a document whose engine has stopped.
enum class EngineLoss {
    kNothing,    // it is shown again as it was
    kLastWords,  // it is shown again as it was a moment before
    kView,       // it cannot be shown, and DocumentHTML has its text
};

/// A document as its surface heard of it last. Where `edited` is empty `source` is its text,
/// otherwise PreserveSource makes it of the three.
struct DocumentCopy {
    std::string source;
    std::string base;
    std::string edited;
};

/// One HTML document. Paths are Windows paths, text is UTF-8.
class EditSurface {
  public:
    virtual ~EditSurface() = default;

    /// Reads the file and starts to show it; Busy until it is there. Raises as
    /// FileSystem::ReadFile, and a surface_error for what it does not edit: the document that was
    /// there stays then.
    virtual void LoadDocument(std::string_view path) = 0;
    /// Writes the document to the file in its encoding; it becomes CurrentDocumentPath.
    virtual void SaveDocument(std::string_view path) = 0;
    /// Tells the surface that its document is in the file now, as after SaveDocument.
    virtual void DocumentSaved(std::string_view path) = 0;
    /// An empty document without a path, in UTF-8. Its DocumentHTML is empty while nothing is
    /// typed. `why` tells the reader what is missing there.
    virtual void NewDocument(std::string_view why) = 0;

    /// The whole document. While it is not edited this is the text as it was loaded or set, also
    /// while Busy; afterwards the source with the edited places replaced, or, with source
    /// preservation off, the surface's own form.
    [[nodiscard]] virtual std::string DocumentHTML() const = 0;
    /// At hand without asking an engine: at the most it lacks the last words of DocumentHTML.
    [[nodiscard]] virtual DocumentCopy LastHeard() const = 0;
    /// Shows the text in place of the document, under the same path. Resets BaseURL, clears the
    /// history of undo, makes the document dirty; Busy until it is there.
    virtual void SetDocumentHTML(std::string_view html) = 0;
    [[nodiscard]] virtual std::string BaseURL() const = 0;
    virtual void SetBaseURL(std::string_view url) = 0;
    [[nodiscard]] virtual std::string CurrentDocumentPath() const = 0;
    /// How the file that was loaded last stands for text.
    [[nodiscard]] virtual TextEncoding Encoding() const = 0;
    [[nodiscard]] virtual bool IsDirty() const = 0;
    [[nodiscard]] virtual bool Busy() const = 0;

    [[nodiscard]] virtual Document& DOM() = 0;
    /// Raises 5 for an unknown command or a wrong value, 445 where the command is not available.
    /// The result is that of the DECMD_GET... commands.
    virtual CommandValue ExecCommand(int command, CommandOption option,
                                     const CommandValue& value) = 0;
    CommandValue ExecCommand(int command) {
        return ExecCommand(command, CommandOption::kDontPromptUser, {});
    }
    /// A command_status.
    [[nodiscard]] virtual int QueryStatus(int command) = 0;
    virtual void Print() = 0;
    virtual void SetFocus() = 0;

    /// Look at the document without editing it.
    virtual void SetBrowseMode(bool on) = 0;
    /// Keep the source as written where it was not edited.
    virtual void SetSourceCodePreservation(bool on) = 0;
    [[nodiscard]] virtual bool SourceCodePreservation() const = 0;
    /// Show the edges of tables that have none.
    virtual void SetShowBorders(bool on) = 0;
    [[nodiscard]] virtual bool ShowBorders() const = 0;
    /// Show signs for what has no look of its own: comments, anchors, scripts, line breaks.
    virtual void SetShowDetails(bool on) = 0;
    [[nodiscard]] virtual bool ShowDetails() const = 0;
    virtual void SetSnapToGrid(bool on) = 0;
    [[nodiscard]] virtual bool SnapToGrid() const = 0;

    /// Events. They come from the event loop, never from within a call.
    std::function<void()> DocumentComplete;  // Busy is over
    std::function<void()> DisplayChanged;    // the selection or the document has changed
    std::function<void()> ondblclick;
    std::function<void(int x, int y)> ShowContextMenu;  // pixels of the surface
    std::function<void()> TextHeard;                    // LastHeard gives another text
    std::function<void(EngineLoss)> EngineLost;
};

}  // namespace quorrel
