#include "ui/source_editor.hpp"

#include <QFontDatabase>
#include <QMimeData>
#include <QPaintEvent>
#include <QPainter>
#include <QTextBlock>

#include "ui/html_highlighter.hpp"
#include "ui/source_text.hpp"

namespace quorrel {
namespace {

constexpr int kTabWidth = 4;       // in characters
constexpr int kMarginPadding = 6;  // pixels on either side of the numbers
constexpr int kFewestDigits = 3;   // so that the text does not jump in a new topic

QColor Blend(const QColor& ground, const QColor& ink, double share) {
    const auto mix = [share](int a, int b) { return qRound(a + (b - a) * share); };
    return {mix(ground.red(), ink.red()), mix(ground.green(), ink.green()),
            mix(ground.blue(), ink.blue())};
}

}  // namespace

/// The strip on the left with the numbers of the lines.
class SourceEditor::Margin : public QWidget {
  public:
    explicit Margin(SourceEditor* editor) : QWidget(editor), editor_(*editor) {}
    QSize sizeHint() const override { return {editor_.MarginWidth(), 0}; }

  protected:
    void paintEvent(QPaintEvent* event) override { editor_.PaintMargin(event->rect()); }

  private:
    SourceEditor& editor_;
};

SourceEditor::SourceEditor(QWidget* parent)
    : QPlainTextEdit(parent),
      highlighter_(new HtmlHighlighter(document(), palette())),
      margin_(new Margin(this)) {
    setObjectName("Source1");
    setAccessibleName("HTML source");
    setLineWrapMode(NoWrap);
    setFont(QFontDatabase::systemFont(QFontDatabase::FixedFont));
    connect(this, &QPlainTextEdit::blockCountChanged, this, &SourceEditor::PlaceMargin);
    connect(this, &QPlainTextEdit::updateRequest, this, &SourceEditor::ScrollMargin);
    connect(this, &QPlainTextEdit::cursorPositionChanged, this, &SourceEditor::MarkCurrentLine);
    ApplyFont();
    ApplyPalette();
}

void SourceEditor::keyPressEvent(QKeyEvent* event) {
    const bool is_new_line = event->matches(QKeySequence::InsertParagraphSeparator) ||
                             event->matches(QKeySequence::InsertLineSeparator);
    if (!is_new_line || isReadOnly()) return QPlainTextEdit::keyPressEvent(event);
    // The toolkit's own would make a U+2028 of Shift+Enter.
    InsertSourceText(textCursor(), "\n");
    ensureCursorVisible();
}

QMimeData* SourceEditor::createMimeDataFromSelection() const {
    auto* copied = new QMimeData;
    copied->setText(SelectedSourceText(textCursor()));
    return copied;
}

void SourceEditor::insertFromMimeData(const QMimeData* source) {
    if (isReadOnly() || !source->hasText()) return;
    InsertSourceText(textCursor(), source->text());
    ensureCursorVisible();
}

void SourceEditor::changeEvent(QEvent* event) {
    QPlainTextEdit::changeEvent(event);
    if (event->type() == QEvent::FontChange) ApplyFont();
    if (event->type() == QEvent::PaletteChange || event->type() == QEvent::StyleChange) {
        ApplyPalette();
    }
}

void SourceEditor::resizeEvent(QResizeEvent* event) {
    QPlainTextEdit::resizeEvent(event);
    PlaceMargin();
}

void SourceEditor::ApplyFont() {
    setTabStopDistance(kTabWidth * QFontMetricsF(font()).horizontalAdvance(' '));
    PlaceMargin();
}

void SourceEditor::ApplyPalette() {
    highlighter_->SetPalette(palette());
    MarkCurrentLine();
    margin_->update();
}

void SourceEditor::MarkCurrentLine() {
    QTextEdit::ExtraSelection line;
    line.format.setBackground(
        Blend(palette().color(QPalette::Base), palette().color(QPalette::Highlight), 0.12));
    line.format.setProperty(QTextFormat::FullWidthSelection, true);
    line.cursor = textCursor();
    line.cursor.clearSelection();
    setExtraSelections({line});
    margin_->update();
}

int SourceEditor::MarginWidth() const {
    int digits = 1;
    for (int count = blockCount(); count >= 10; count /= 10) ++digits;
    digits = std::max(digits, kFewestDigits);
    return 2 * kMarginPadding + digits * fontMetrics().horizontalAdvance('9');
}

void SourceEditor::PlaceMargin() {
    const int width = MarginWidth();
    setViewportMargins(width, 0, 0, 0);
    const QRect place = contentsRect();
    margin_->setGeometry(place.left(), place.top(), width, viewport()->height());
    margin_->update();
}

void SourceEditor::ScrollMargin(const QRect& area, int by) {
    if (by != 0) {
        margin_->scroll(0, by);
    } else {
        margin_->update(0, area.y(), margin_->width(), area.height());
    }
}

void SourceEditor::PaintMargin(const QRect& area) {
    const QColor ground = palette().color(QPalette::Base);
    const QColor ink = palette().color(QPalette::Text);
    QPainter painter(margin_);
    painter.fillRect(area, Blend(ground, ink, 0.05));
    painter.setFont(font());
    const int current = textCursor().blockNumber();
    const int right = margin_->width() - kMarginPadding;
    QTextBlock block = firstVisibleBlock();
    double top = blockBoundingGeometry(block).translated(contentOffset()).top();
    while (block.isValid() && top <= area.bottom()) {
        const double height = blockBoundingRect(block).height();
        if (top + height >= area.top()) {
            const bool is_current = block.blockNumber() == current;
            painter.setPen(Blend(ground, ink, is_current ? 1.0 : 0.55));
            painter.drawText(QRectF(0, top, right, fontMetrics().height()), Qt::AlignRight,
                             QString::number(block.blockNumber() + 1));
        }
        top += height;
        block = block.next();
    }
}

}  // namespace quorrel
