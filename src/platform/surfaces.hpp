// What the logic asks of the editing surface, the source view and the browser pane.
#pragma once

#include <string>
#include <string_view>

namespace quorrel {

/// The WYSIWYG surface: one HTML document. Paths are Windows paths. While Busy a load is
/// running, and the document is not to be read.
class EditSurface {
  public:
    virtual ~EditSurface() = default;

    /// Starts to load the file. Raises the number of the failure where it cannot.
    virtual void LoadDocument(std::string_view path) = 0;
    /// Writes the document to the file, which becomes CurrentDocumentPath.
    virtual void SaveDocument(std::string_view path) = 0;
    /// An empty document without a path.
    virtual void NewDocument() = 0;

    [[nodiscard]] virtual std::string DocumentHTML() const = 0;
    /// Loads the text in place of the document and resets BaseURL.
    virtual void SetDocumentHTML(std::string_view html) = 0;
    [[nodiscard]] virtual std::string BaseURL() const = 0;
    virtual void SetBaseURL(std::string_view url) = 0;
    [[nodiscard]] virtual std::string CurrentDocumentPath() const = 0;
    [[nodiscard]] virtual bool IsDirty() const = 0;
    [[nodiscard]] virtual bool Busy() const = 0;

    /// Keep the source as written where it was not edited.
    virtual void SetSourceCodePreservation(bool on) = 0;
    [[nodiscard]] virtual bool SourceCodePreservation() const = 0;
};

/// The source view: one plain text, coloured as HTML.
class SourceEdit {
  public:
    virtual ~SourceEdit() = default;
    [[nodiscard]] virtual std::string Text() const = 0;
    virtual void SetText(std::string_view text) = 0;
    /// Raises as FileSystem::ReadFile.
    virtual void LoadFile(std::string_view path) = 0;
    virtual void SetFocus() = 0;
};

/// The browser pane.
class WebBrowser {
  public:
    virtual ~WebBrowser() = default;
    /// A Windows path, with "#" and a bookmark behind it if need be, or a URL.
    virtual void Navigate(std::string_view target) = 0;
    virtual void GoBack() = 0;
    virtual void Stop() = 0;
};

}  // namespace quorrel
