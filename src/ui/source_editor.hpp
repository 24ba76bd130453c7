// The plain text in which the HTML source is edited.
#pragma once

#include <QPlainTextEdit>

namespace quorrel {

class HtmlHighlighter;

/// Has line numbers and colours, and loses no character of what is pasted or copied.
class SourceEditor : public QPlainTextEdit {
    Q_OBJECT
  public:
    explicit SourceEditor(QWidget* parent = nullptr);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void changeEvent(QEvent* event) override;
    void resizeEvent(QResizeEvent* event) override;
    QMimeData* createMimeDataFromSelection() const override;
    void insertFromMimeData(const QMimeData* source) override;

  private:
    class Margin;

    void ApplyFont();
    void ApplyPalette();
    void MarkCurrentLine();
    [[nodiscard]] int MarginWidth() const;
    void PlaceMargin();
    void ScrollMargin(const QRect& area, int by);
    void PaintMargin(const QRect& area);

    HtmlHighlighter* highlighter_;
    Margin* margin_;
};

}  // namespace quorrel
