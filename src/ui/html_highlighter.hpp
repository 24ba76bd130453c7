// Colours the HTML of a document.
#pragma once

#include <QPalette>
#include <QSyntaxHighlighter>

#include <vector>

#include "editor/source_colors.hpp"

namespace quorrel {

/// The colour in which tokens of a class are seen on the palette's ground.
[[nodiscard]] QColor SourceColorOn(SourceToken token, const QPalette& palette);

class HtmlHighlighter : public QSyntaxHighlighter {
    Q_OBJECT
  public:
    HtmlHighlighter(QTextDocument* document, const QPalette& palette);

    void SetPalette(const QPalette& palette);

  protected:
    void highlightBlock(const QString& line) override;

  private:
    void TakeColors(const QPalette& palette);

    QColor comment_;
    QColor markup_;
    std::vector<SourceTokenSpan> tokens_;
};

}  // namespace quorrel
