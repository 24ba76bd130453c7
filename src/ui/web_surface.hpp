// The editing surface on the web engine.
#pragma once

#include <QElapsedTimer>
#include <QJsonObject>
#include <QObject>
#include <QPoint>
#include <QPointer>
#include <QTimer>
#include <QUrl>
#include <QVariant>

#include <functional>
#include <memory>
#include <optional>
#include <string>

#include "platform/file_system.hpp"
#include "platform/surfaces.hpp"
#include "ui/find_bar.hpp"
#include "ui/page_calls.hpp"
#include "ui/web_document.hpp"

class QDropEvent;
class QLabel;
class QMimeData;
class QStackedWidget;
class QWebEngineLoadingInfo;
class QWebEngineProfile;
class QWebEngineView;

namespace quorrel {

class TopicPage;
class TopicView;

/// The document is served from memory under a URL that mirrors its path, and edited by a script
/// of ours beside the page. The page's own scripts, plug-ins and the network are off. The engine
/// is started by the first document, so that the window is there before it.
///
/// Until the document is there (Busy) it cannot be edited: nothing is selected, commands are
/// disabled.
///
/// The text of an edited page is asked for after a pause in the typing, and every few seconds at
/// the latest. When the engine's process dies the page is shown again with what was heard last;
/// where it dies again and again that text stays, to be saved.
class WebSurface : public QObject, public EditSurface {
    Q_OBJECT
  public:
    explicit WebSurface(FileSystem& files);
    ~WebSurface() override;

    void LoadDocument(std::string_view path) override;
    void SaveDocument(std::string_view path) override;
    void DocumentSaved(std::string_view path) override;
    void NewDocument(std::string_view why) override;
    std::string DocumentHTML() const override;
    DocumentCopy LastHeard() const override;
    void SetDocumentHTML(std::string_view html) override;
    /// Kept for the caller; the document is shown from its own path.
    std::string BaseURL() const override { return base_url_; }
    void SetBaseURL(std::string_view url) override { base_url_ = url; }
    std::string CurrentDocumentPath() const override { return path_; }
    TextEncoding Encoding() const override { return encoding_; }
    bool IsDirty() const override;
    bool Busy() const override;

    Document& DOM() override { return document_; }
    using EditSurface::ExecCommand;
    CommandValue ExecCommand(int command, CommandOption option, const CommandValue& value) override;
    int QueryStatus(int command) override;
    void Print() override;
    void SetFocus() override;

    void SetBrowseMode(bool on) override;
    void SetSourceCodePreservation(bool on) override;
    bool SourceCodePreservation() const override { return preserve_; }
    void SetShowBorders(bool on) override;
    bool ShowBorders() const override { return look_.borders; }
    void SetShowDetails(bool on) override;
    bool ShowDetails() const override { return look_.details; }
    void SetSnapToGrid(bool on) override;
    bool SnapToGrid() const override { return look_.grid; }

    /// What is placed in the window. It belongs to its parent as soon as it has one.
    [[nodiscard]] QWidget* Widget() const;
    /// Null before the first document.
    [[nodiscard]] QWebEngineView* View() const;
    /// Shows a text in place of the document, until the next one comes.
    void ShowHint(const QString& text);

    /// The code page of documents that name none.
    std::function<int()> code_page;
    /// The user followed a link to a file: its Windows path, and a bookmark. While editing this
    /// takes Ctrl and a click.
    std::function<void(const std::string& path, const QString& bookmark)> link_clicked;
    /// Something is dropped that did not come from the document. True if the drop is taken care
    /// of: then only the caret goes there, and DisplayChanged follows.
    std::function<bool(const QMimeData& dropped)> drop_taken;
    /// The next document is shown from this bookmark on.
    void SetNextBookmark(const QString& bookmark) { next_bookmark_ = bookmark; }

  private:
    /// How the page is to look and behave.
    struct Look {
        bool browse = false;
        bool borders = false;
        bool details = false;
        bool grid = false;
    };
    /// What is to be told when no call is under way.
    struct Events {
        bool complete = false;
        bool display = false;
        bool double_click = false;
        std::optional<QPoint> menu;
        QUrl link;
        std::optional<EngineLoss> loss;
        bool heard = false;
    };
    /// What the page gave last of its text.
    struct Heard {
        std::string base;  // as it was right after loading
        std::string html;
        int version = 0;
    };

    void StartEngine();
    void BuildPane();
    void ConnectPage();
    void Show();
    /// An empty page behind a hint.
    void ShowNothing(const QString& why);
    void StartLoad();
    QJsonObject Setup() const;
    QJsonObject LookForPage() const;
    void ApplyLook();

    void NoteLoading(const QWebEngineLoadingInfo& info);
    void NoteMessage(const QString& text);
    void LoadAgain();
    void NoteReady();
    void NoteCrash();
    void HearSoon();
    void Hear();
    [[nodiscard]] std::string SourceOf(const Heard& heard) const;
    void EndLoad();
    void FollowLink(const QUrl& url);
    void Raise(Events events);
    void DeliverEvents();
    void ShowOwnMenu(const QPoint& place);

    [[nodiscard]] bool IsReady() const;
    [[nodiscard]] int Version() const;
    [[nodiscard]] std::string EditedSource() const;
    [[nodiscard]] QVariantMap Statuses();
    /// The value for a command by the user, nothing if the dialog is cancelled.
    std::optional<QJsonValue> Ask(int command, const QJsonValue& given);
    void OpenFindBar();
    void Search(FindBar::Step step);

    void PasteFiles();
    [[nodiscard]] bool MayDrop(const QDropEvent& event) const;
    void Drop(const QDropEvent& event);

    FileSystem& files_;
    QPointer<QStackedWidget> stack_;
    QPointer<QLabel> hint_;
    std::unique_ptr<QWebEngineProfile> profile_;
    QPointer<QWidget> pane_;  // the view, and the bar for finding under it
    QPointer<TopicView> view_;
    QPointer<FindBar> find_bar_;
    QPointer<TopicPage> page_;
    QPointer<QWidget> keys_back_to_;  // when the document is there
    std::unique_ptr<PageCalls> calls_;
    WebDocument document_;

    std::string source_;  // as it was loaded or set
    TextEncoding encoding_{TextEncoding::Form::kUtf8, kUtf8CodePage};
    std::string path_;
    std::string base_url_;
    bool is_first_look_ = false;  // a file was loaded, and is not shown yet
    bool is_set_ = false;         // the text was set, and is in no file since
    int saved_version_ = 0;
    mutable Heard heard_;
    // The source that was made of what was heard, for which state.
    mutable std::string html_;
    mutable int html_version_ = 0;
    QTimer hear_timer_;
    QElapsedTimer unheard_since_;
    qint64 hearing_takes_ = 0;  // milliseconds
    int crashes_ = 0;           // of this document, in a row
    QElapsedTimer last_crash_;
    bool is_shown_again_ = false;  // after a crash: no new document for anybody
    /// The page may have changed without having said so yet.
    mutable bool is_input_seen_ = false;

    QString token_;
    QTimer load_timer_;
    QUrl url_;
    QString next_bookmark_;
    QString bookmark_;
    int load_ = 0;
    bool is_loaded_ = false;
    int tries_ = 0;
    bool is_script_there_ = false;
    bool busy_ = false;
    QElapsedTimer busy_since_;

    bool preserve_ = true;
    Look look_;
    QJsonValue copied_;  // what was copied last from a topic, as the script keeps it
    QVariantMap statuses_;
    int statuses_at_ = 0;
    Events events_;
    QTimer display_timer_;
};

}  // namespace quorrel
