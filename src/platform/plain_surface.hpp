// A surface without a screen: it holds the document as text and gives it back as it is.
#pragma once

#include "platform/file_system.hpp"
#include "platform/surfaces.hpp"

namespace quorrel {

class PlainSurface : public EditSurface {
  public:
    explicit PlainSurface(FileSystem& files) : files_(files) {}

    void LoadDocument(std::string_view path) override {
        html_ = files_.ReadFile(path);
        path_ = path;
        base_url_.clear();
        dirty_ = false;
    }
    void SaveDocument(std::string_view path) override {
        files_.WriteFile(path, html_);
        path_ = path;
        dirty_ = false;
    }
    void NewDocument() override {
        html_.clear();
        path_.clear();
        base_url_.clear();
        dirty_ = false;
    }
    std::string DocumentHTML() const override { return html_; }
    void SetDocumentHTML(std::string_view html) override {
        html_ = html;
        base_url_.clear();
        dirty_ = true;
    }
    std::string BaseURL() const override { return base_url_; }
    void SetBaseURL(std::string_view url) override { base_url_ = url; }
    std::string CurrentDocumentPath() const override { return path_; }
    bool IsDirty() const override { return dirty_; }
    bool Busy() const override { return false; }
    void SetSourceCodePreservation(bool on) override { preserve_ = on; }
    bool SourceCodePreservation() const override { return preserve_; }

  private:
    FileSystem& files_;
    std::string html_;
    std::string path_;
    std::string base_url_;
    bool dirty_ = false;
    bool preserve_ = true;
};

}  // namespace quorrel
