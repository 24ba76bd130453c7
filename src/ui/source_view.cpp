#include "ui/source_view.hpp"

#include <QApplication>
#include <QEvent>
#include <QLineEdit>
#include <QPrintDialog>
#include <QPrinter>
#include <QScrollBar>
#include <QTextBlock>
#include <QVBoxLayout>

#include "ui/html_highlighter.hpp"
#include "ui/source_editor.hpp"
#include "ui/source_text.hpp"

namespace quorrel {

SourceView::SourceView()
    : area_(new QWidget), editor_(new SourceEditor(area_)), find_bar_(new FindBar(area_)) {
    area_->setObjectName("SourceArea");
    area_->setFocusProxy(editor_);
    auto* column = new QVBoxLayout(area_);
    column->setContentsMargins(0, 0, 0, 0);
    column->setSpacing(0);
    column->addWidget(editor_, 1);
    column->addWidget(find_bar_);
    find_bar_->Serve(editor_);
    editor_->installEventFilter(this);
    connect(editor_, &QPlainTextEdit::textChanged, this, &SourceView::NoteChange);
    connect(find_bar_, &FindBar::OpenRequested, this, &SourceView::Find);
    connect(find_bar_, &FindBar::Find, this, &SourceView::Search);
}

SourceView::~SourceView() {
    if (!area_.isNull() && area_->parent() == nullptr) delete area_;
}

QWidget* SourceView::Widget() const {
    return area_;
}

SourceEditor* SourceView::Editor() const {
    return editor_;
}

std::string SourceView::Text() const {
    const bool is_edited = !editor_.isNull() && is_laid_out_ && editor_->document()->isModified();
    return is_edited ? SourceText(*editor_->document()) : original_;
}

void SourceView::SetText(std::string_view text) {
    // Saving sets the text that is there; the caret shall not move then.
    const bool is_same = is_laid_out_ && text == Text();
    original_ = text;
    if (!editor_.isNull() && is_same) {
        editor_->document()->clearUndoRedoStacks();
        editor_->document()->setModified(false);
    } else if (!editor_.isNull()) {
        is_laid_out_ = false;
        if (editor_->isVisible()) LayOut();
    }
    if (Change) Change();
}

void SourceView::ReplaceText(std::string_view text) {
    if (editor_.isNull() || !editor_->isVisible()) return SetText(text);
    QTextCursor caret = editor_->textCursor();
    const int line = caret.blockNumber();
    const int column = caret.positionInBlock();
    const QString behind = caret.block().text().mid(column);
    const int top = editor_->verticalScrollBar()->value();
    SetText(text);
    const QTextBlock block = editor_->document()->findBlockByNumber(line);
    const QString now = block.isValid() ? block.text() : QString();
    // What has changed in the line stands before the caret as a rule.
    const bool is_behind_same = now.endsWith(behind);
    const auto place =
        is_behind_same ? now.size() - behind.size() : qMin<qsizetype>(column, now.size());
    caret = QTextCursor(block.isValid() ? block : editor_->document()->lastBlock());
    caret.setPosition(caret.position() + static_cast<int>(place));
    editor_->setTextCursor(caret);
    editor_->verticalScrollBar()->setValue(top);
}

void SourceView::SetReadOnly(bool on) {
    if (editor_.isNull()) return;
    editor_->setReadOnly(on);
    editor_->setPlaceholderText(on ? "There is no document to show." : QString());
}

void SourceView::LayOut() {
    if (is_laid_out_ || editor_.isNull()) return;
    is_setting_ = true;
    SetSourceText(*editor_->document(), original_);
    editor_->moveCursor(QTextCursor::Start);
    is_laid_out_ = true;
    is_setting_ = false;
}

void SourceView::NoteChange() {
    if (!is_setting_ && Change) Change();
}

bool SourceView::eventFilter(QObject*, QEvent* event) {
    if (event->type() == QEvent::Show) LayOut();
    return false;
}

void SourceView::SetFocus() {
    LayOut();
    if (!editor_.isNull()) editor_->setFocus(Qt::OtherFocusReason);
}

template <typename Command, typename LineCommand>
void SourceView::Run(Command command, LineCommand line_command) {
    if (editor_.isNull()) return;
    LayOut();
    auto* line = qobject_cast<QLineEdit*>(QApplication::focusWidget());
    if (line != nullptr && find_bar_->isAncestorOf(line)) {
        (line->*line_command)();
    } else {
        (editor_->*command)();
    }
}

void SourceView::Cut() {
    Run(&QPlainTextEdit::cut, &QLineEdit::cut);
}
void SourceView::Copy() {
    Run(&QPlainTextEdit::copy, &QLineEdit::copy);
}
void SourceView::Paste() {
    Run(&QPlainTextEdit::paste, &QLineEdit::paste);
}
void SourceView::Undo() {
    Run(&QPlainTextEdit::undo, &QLineEdit::undo);
}
void SourceView::Redo() {
    Run(&QPlainTextEdit::redo, &QLineEdit::redo);
}
void SourceView::SelectAll() {
    Run(&QPlainTextEdit::selectAll, &QLineEdit::selectAll);
}

void SourceView::Find() {
    if (editor_.isNull()) return;
    LayOut();
    find_bar_->Open(editor_->textCursor().selectedText());
}

QTextCursor SourceView::FindFrom(const QTextCursor& from, FindBar::Step step) const {
    QTextDocument::FindFlags flags;
    flags.setFlag(QTextDocument::FindBackward, step == FindBar::Step::kPrevious);
    flags.setFlag(QTextDocument::FindCaseSensitively, find_bar_->MatchCase());
    flags.setFlag(QTextDocument::FindWholeWords, find_bar_->WholeWords());
    // The document looks at its own hard blanks as at blanks.
    const QString text = find_bar_->Text().replace(QChar::Nbsp, ' ');
    return editor_->document()->find(text, from, flags);
}

void SourceView::Search(FindBar::Step step) {
    if (editor_.isNull()) return;
    LayOut();
    find_bar_->ShowMessage({});
    if (find_bar_->Text().isEmpty()) return;
    QTextCursor from = editor_->textCursor();
    if (step == FindBar::Step::kHere) from.setPosition(from.selectionStart());
    QTextCursor found = FindFrom(from, step);
    if (found.isNull()) {
        const bool is_back = step == FindBar::Step::kPrevious;
        from.movePosition(is_back ? QTextCursor::End : QTextCursor::Start);
        found = FindFrom(from, step);
        find_bar_->ShowMessage(found.isNull() ? FindBar::NotFoundMessage()
                                              : FindBar::WrappedMessage(step));
    }
    if (!found.isNull()) editor_->setTextCursor(found);
}

void SourceView::Print() {
    if (editor_.isNull()) return;
    LayOut();
    QPrinter printer(QPrinter::HighResolution);
    QPrintDialog dialog(&printer, area_);
    dialog.setObjectName("PrintDialog");
    dialog.setWindowTitle("Print HTML Source");
    dialog.setOption(QAbstractPrintDialog::PrintSelection, editor_->textCursor().hasSelection());
    if (dialog.exec() != QDialog::Accepted || editor_.isNull()) return;
    PrintTo(printer, printer.printRange() == QPrinter::Selection);
}

void SourceView::PrintTo(QPagedPaintDevice& paper, bool only_selection) {
    LayOut();
    QTextDocument page;
    page.setDefaultFont(editor_->font());
    QTextOption option = page.defaultTextOption();
    option.setTabStopDistance(editor_->tabStopDistance());
    page.setDefaultTextOption(option);
    // Paper is white, whatever the window is.
    const HtmlHighlighter highlighter(&page, QPalette(Qt::white));
    const QTextCursor selection = editor_->textCursor();
    SetSourceText(page, only_selection ? SelectedSourceText(selection).toStdString() : Text());
    page.print(&paper);
}

}  // namespace quorrel
