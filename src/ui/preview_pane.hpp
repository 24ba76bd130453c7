// The pane in which a topic is tried out.
#pragma once

#include <QObject>
#include <QPointer>
#include <QSet>
#include <QUrl>

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/file_system.hpp"
#include "platform/surfaces.hpp"
#include "ui/page_files.hpp"

class QLabel;
class QStackedWidget;
class QWebEngineNewWindowRequest;
class QWebEngineProfile;
class QWebEngineView;

namespace quorrel {

class PreviewPage;

/// Scripts run, the network is closed, and of the disk a page gets what belongs to what is shown.
/// The engine is started by the first document.
class PreviewPane : public QObject, public WebBrowser {
    Q_OBJECT
  public:
    explicit PreviewPane(FileSystem& files);
    ~PreviewPane() override;

    void Navigate(std::string_view target) override;
    void GoBack() override;
    void Refresh() override;
    void Stop() override;

    /// What is placed in the window. It belongs to its parent as soon as it has one.
    [[nodiscard]] QWidget* Widget() const;
    /// Null before the first document.
    [[nodiscard]] QWebEngineView* View() const;

    /// The code page of documents that name none.
    std::function<int()> code_page;
    /// Whether pages may have the file with this full path. Unset, they get none.
    std::function<bool(const std::string& path)> belongs;
    /// The folder that the links of the document with this full path are relative to, where that
    /// is not its own; empty for its own. Such a list of topics opens them in the pane itself.
    std::function<std::string(const std::string& path)> links_from;
    /// Opens an address with the desktop's own program.
    std::function<void(const QUrl&)> open_external;

  private:
    void StartEngine();
    void MakePage();
    void Connect(PreviewPage& page);
    void OpenWindow(const PreviewPage& from, QWebEngineNewWindowRequest& request);
    [[nodiscard]] std::string LinksFrom(const std::string& path) const;
    /// The document with its links as they are meant.
    [[nodiscard]] std::string WithLinksFrom(const std::string& folder, const std::string& path);
    void NoteCrash();
    /// Whether the topic as written leads to the address. A script can read files, and make what
    /// it has read part of an address.
    [[nodiscard]] bool IsInSource(const QUrl& topic, const QUrl& address);
    /// The text of a document that is not shown as its file has it, or a page of ours in place of
    /// one that is not there.
    [[nodiscard]] std::optional<std::string> Substitute(const QUrl& url);

    FileSystem& files_;
    PageFiles page_files_;
    QPointer<QStackedWidget> stack_;
    QPointer<QLabel> hint_;
    std::unique_ptr<QWebEngineProfile> profile_;
    QPointer<QWebEngineView> view_;
    QPointer<PreviewPage> page_;
    QSet<QUrl> opening_;  // documents that the engine is about to ask for
    int load_ = 0;
};

}  // namespace quorrel
