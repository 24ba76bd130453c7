// The HTML source of the open topic.
#pragma once

#include <QObject>
#include <QPointer>

#include <string>

#include "platform/surfaces.hpp"
#include "ui/find_bar.hpp"

class QPagedPaintDevice;
class QTextCursor;

namespace quorrel {

class SourceEditor;

/// An editor with a find bar below it. A text that is set while nobody sees it is laid out when
/// somebody does.
class SourceView : public QObject, public SourceEdit {
    Q_OBJECT
  public:
    SourceView();
    ~SourceView() override;

    std::string Text() const override;
    void SetText(std::string_view text) override;
    void ReplaceText(std::string_view text) override;
    void SetReadOnly(bool on) override;
    void SetFocus() override;
    /// While the find bar has the focus these work on its line.
    void Cut() override;
    void Copy() override;
    void Paste() override;
    void Undo() override;
    void Redo() override;
    void SelectAll() override;
    void Find() override;
    /// Asks for the printer first.
    void Print() override;

    /// What is placed in the window. It belongs to its parent as soon as it has one.
    [[nodiscard]] QWidget* Widget() const;
    [[nodiscard]] SourceEditor* Editor() const;
    /// All of the text, or the selection, in the colours for paper.
    void PrintTo(QPagedPaintDevice& paper, bool only_selection);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    void LayOut();
    void NoteChange();
    void Search(FindBar::Step step);
    [[nodiscard]] QTextCursor FindFrom(const QTextCursor& from, FindBar::Step step) const;
    template <typename Command, typename LineCommand>
    void Run(Command command, LineCommand line_command);

    QPointer<QWidget> area_;
    QPointer<SourceEditor> editor_;
    QPointer<FindBar> find_bar_;
    std::string original_;
    bool is_laid_out_ = true;
    bool is_setting_ = false;
};

}  // namespace quorrel
