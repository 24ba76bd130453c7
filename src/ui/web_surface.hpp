// The topic as the web engine shows it.
#pragma once

#include <QElapsedTimer>
#include <QObject>
#include <QPointer>
#include <QUrl>

#include <functional>
#include <memory>
#include <string>

#include "platform/failure.hpp"
#include "platform/file_system.hpp"
#include "platform/surfaces.hpp"

class QLabel;
class QStackedWidget;
class QWebEngineLoadingInfo;
class QWebEngineProfile;
class QWebEngineView;

namespace quorrel {

class TopicPage;

/// A read-only surface. Scripts, plug-ins and the network are off. The engine is started by the
/// first document, so that the window is there before it.
class WebSurface : public QObject, public EditSurface {
    Q_OBJECT
  public:
    explicit WebSurface(FileSystem& files);
    ~WebSurface() override;

    void LoadDocument(std::string_view path) override;
    void SaveDocument(std::string_view path) override;
    void NewDocument(std::string_view why) override;
    std::string DocumentHTML() const override;
    void SetDocumentHTML(std::string_view html) override;
    std::string BaseURL() const override { return base_url_; }
    void SetBaseURL(std::string_view url) override { base_url_ = url; }
    std::string CurrentDocumentPath() const override { return path_; }
    TextEncoding Encoding() const override { return encoding_; }
    void DocumentSaved(std::string_view path) override { path_ = path; }
    bool IsDirty() const override { return false; }
    Document& DOM() override { throw RuntimeError(445, "not available"); }
    using EditSurface::ExecCommand;
    CommandValue ExecCommand(int, CommandOption, const CommandValue&) override {
        throw RuntimeError(445, "not available");
    }
    int QueryStatus(int) override { return 0; }
    void Print() override {}
    void SetFocus() override {}
    void SetBrowseMode(bool) override {}
    void SetShowBorders(bool) override {}
    bool ShowBorders() const override { return false; }
    void SetShowDetails(bool) override {}
    bool ShowDetails() const override { return false; }
    void SetSnapToGrid(bool) override {}
    bool SnapToGrid() const override { return false; }
    bool Busy() const override;
    void SetSourceCodePreservation(bool on) override { preserve_ = on; }
    bool SourceCodePreservation() const override { return preserve_; }

    /// What is placed in the window. It belongs to its parent as soon as it has one.
    [[nodiscard]] QWidget* Widget() const;
    /// Null before the first document.
    [[nodiscard]] QWebEngineView* View() const;

    /// The code page of documents that name none.
    std::function<int()> code_page;
    /// The user clicked a link to a file: its Windows path, and a bookmark.
    std::function<void(const std::string& path, const QString& bookmark)> link_clicked;
    /// The next document is shown from this bookmark on.
    void SetNextBookmark(const QString& bookmark) { next_bookmark_ = bookmark; }

  private:
    void StartEngine();
    void Show();
    void ShowHint(const QString& text);
    void NoteLoading(const QWebEngineLoadingInfo& info);
    void NoteCrash();
    void FollowLink(const QUrl& url);

    FileSystem& files_;
    QPointer<QStackedWidget> stack_;
    QPointer<QLabel> hint_;
    std::unique_ptr<QWebEngineProfile> profile_;
    QPointer<QWebEngineView> view_;
    QPointer<TopicPage> page_;

    std::string bytes_;
    TextEncoding encoding_;
    std::string path_;
    std::string base_url_;
    QUrl url_;
    QString next_bookmark_;
    int load_ = 0;
    bool busy_ = false;
    QElapsedTimer busy_since_;
    bool preserve_ = true;
};

}  // namespace quorrel
