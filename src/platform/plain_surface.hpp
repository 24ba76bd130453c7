// A surface without a screen: it holds the document as text and gives it back as it is.
#pragma once

#include "platform/code_page.hpp"
#include "platform/edit_surface.hpp"
#include "platform/failure.hpp"
#include "platform/file_system.hpp"
#include "platform/topic_encoding.hpp"

namespace quorrel {

class PlainSurface : public EditSurface {
  public:
    explicit PlainSurface(FileSystem& files)
        : code_page([] { return CodePageOfMachine().number; }), files_(files) {}

    /// The code page of documents that name none.
    std::function<int()> code_page;

    void LoadDocument(std::string_view path) override {
        TopicText topic = ReadTopicText(files_.ReadFile(path), code_page());
        html_ = std::move(topic.text);
        encoding_ = topic.encoding;
        path_ = path;
        base_url_.clear();
        dirty_ = false;
        if (DocumentComplete) DocumentComplete();
    }
    void SaveDocument(std::string_view path) override {
        files_.WriteFile(path, TopicBytes(html_, encoding_));
        DocumentSaved(path);
    }
    void DocumentSaved(std::string_view path) override {
        path_ = path;
        dirty_ = false;
    }
    void NewDocument(std::string_view) override {
        html_.clear();
        path_.clear();
        base_url_.clear();
        encoding_ = {TextEncoding::Form::kUtf8, kUtf8CodePage};
        dirty_ = false;
    }
    std::string DocumentHTML() const override { return html_; }
    void SetDocumentHTML(std::string_view html) override {
        html_ = html;
        base_url_.clear();
        dirty_ = true;
        if (DocumentComplete) DocumentComplete();
    }
    std::string BaseURL() const override { return base_url_; }
    void SetBaseURL(std::string_view url) override { base_url_ = url; }
    std::string CurrentDocumentPath() const override { return path_; }
    TextEncoding Encoding() const override { return encoding_; }
    bool IsDirty() const override { return dirty_; }
    bool Busy() const override { return false; }

    Document& DOM() override { throw RuntimeError(445, "not available"); }
    using EditSurface::ExecCommand;
    CommandValue ExecCommand(int, CommandOption, const CommandValue&) override {
        throw RuntimeError(445, "not available");
    }
    int QueryStatus(int) override { return 0; }
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

  private:
    FileSystem& files_;
    std::string html_;
    std::string path_;
    std::string base_url_;
    TextEncoding encoding_{TextEncoding::Form::kUtf8, kUtf8CodePage};
    bool dirty_ = false;
    bool preserve_ = true;
    bool show_borders_ = false;
    bool show_details_ = false;
    bool snap_to_grid_ = false;
};

}  // namespace quorrel
