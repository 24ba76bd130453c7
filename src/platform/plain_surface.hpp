// A surface without a screen: it holds the document as text and gives it back as it is.
#pragma once

#include <cstddef>
#include <functional>
#include <memory>
#include <string>
#include <string_view>

#include "platform/edit_surface.hpp"
#include "platform/file_system.hpp"
#include "platform/plain_surface/plain_document.hpp"
#include "platform/plain_surface/plain_objects.hpp"

namespace quorrel {

/// Never busy: DocumentComplete comes from within LoadDocument and SetDocumentHTML. The commands
/// are those of plain_commands.hpp. The other events never come.
class PlainSurface : public EditSurface {
  public:
    explicit PlainSurface(FileSystem& files);
    PlainSurface(const PlainSurface&) = delete;
    PlainSurface& operator=(const PlainSurface&) = delete;

    /// The code page of documents that name none.
    std::function<int()> code_page;
    /// What Cut and Copy leave and Paste takes: HTML.
    std::string clipboard;

    void LoadDocument(std::string_view path) override;
    void SaveDocument(std::string_view path) override;
    void DocumentSaved(std::string_view path) override;
    void NewDocument(std::string_view why) override;
    DocumentCopy LastHeard() const override { return {DocumentHTML(), {}, {}}; }
    std::string DocumentHTML() const override { return document_->Html(); }
    void SetDocumentHTML(std::string_view html) override;
    std::string BaseURL() const override { return base_url_; }
    void SetBaseURL(std::string_view url) override { base_url_ = url; }
    std::string CurrentDocumentPath() const override { return path_; }
    TextEncoding Encoding() const override { return encoding_; }
    bool IsDirty() const override { return document_->dirty; }
    bool Busy() const override { return false; }

    Document& DOM() override { return dom_; }
    using EditSurface::ExecCommand;
    CommandValue ExecCommand(int command, CommandOption option, const CommandValue& value) override;
    int QueryStatus(int command) override;
    void Print() override {}
    void SetFocus() override {}

    void SetBrowseMode(bool) override {}
    void SetSourceCodePreservation(bool on) override { preserve_ = on; }
    bool SourceCodePreservation() const override { return preserve_; }
    void SetShowBorders(bool on) override { show_borders_ = on; }
    bool ShowBorders() const override { return show_borders_; }
    void SetShowDetails(bool on) override { show_details_ = on; }
    bool ShowDetails() const override { return show_details_; }
    void SetSnapToGrid(bool on) override { snap_to_grid_ = on; }
    bool SnapToGrid() const override { return snap_to_grid_; }

    // What a user does with the mouse. Offsets are bytes of DocumentHTML.

    /// Selects a text, or sets the caret where both are equal. What is outside the body, or inside
    /// a tag or character, goes to the next place before it that is not.
    void SelectText(std::size_t from_byte, std::size_t to_byte);
    /// Selects the element whose start tag begins there; raises 5 if there is none.
    void SelectControl(std::size_t tag_byte);
    /// Selects the first occurrence of this source in the body that does not begin inside a tag or
    /// comment: as a control if it is the start tag or the whole of a graphic, a table, an object
    /// or the like, else as text. Raises 5 if there is none.
    void SelectFirst(std::string_view source);

  private:
    void Show(std::string html, bool is_dirty);

    FileSystem& files_;
    std::shared_ptr<PlainDocument> document_;
    PlainDom dom_{document_};
    std::string path_;
    std::string base_url_;
    TextEncoding encoding_;
    bool preserve_ = true;
    bool show_borders_ = false;
    bool show_details_ = false;
    bool snap_to_grid_ = false;
};

}  // namespace quorrel
