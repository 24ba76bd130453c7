#include "ui/html_highlighter.hpp"

#include "ui/appearance.hpp"

namespace quorrel {
namespace {

/// Behind this place a line stays black: each colour costs at every stroke of a key in the line.
constexpr std::size_t kColoredCharacters = 10000;

}  // namespace

QColor SourceColorOn(SourceToken token, const QPalette& palette) {
    // Black is what the desktop writes in.
    if (token == SourceToken::kText) return palette.color(QPalette::Text);
    const TokenColor plain = SourceTokenColor(static_cast<int>(token));
    const QColor color(plain.red, plain.green, plain.blue);
    if (!IsDark(palette)) return color;
    const bool is_green = plain.green > plain.blue;
    return is_green ? QColor(0x7D, 0xC9, 0x7D) : QColor(0x7F, 0xB4, 0xFF);
}

HtmlHighlighter::HtmlHighlighter(QTextDocument* document, const QPalette& palette)
    : QSyntaxHighlighter(document) {
    TakeColors(palette);
}

void HtmlHighlighter::TakeColors(const QPalette& palette) {
    comment_ = SourceColorOn(SourceToken::kLineComment, palette);
    markup_ = SourceColorOn(SourceToken::kTag, palette);
}

void HtmlHighlighter::SetPalette(const QPalette& palette) {
    const QColor before = markup_;
    TakeColors(palette);
    if (markup_ != before) rehighlight();
}

void HtmlHighlighter::highlightBlock(const QString& line) {
    tokens_.clear();
    const std::u16string_view text(reinterpret_cast<const char16_t*>(line.utf16()),
                                   static_cast<std::size_t>(line.size()));
    const SourceState state =
        TokenizeSourceLine(text, SourceState::Unpacked(previousBlockState()), tokens_);
    for (const SourceTokenSpan& span : tokens_) {
        if (span.offset >= kColoredCharacters) break;
        const bool is_comment =
            span.token == SourceToken::kLineComment || span.token == SourceToken::kBlockComment;
        setFormat(static_cast<int>(span.offset), static_cast<int>(span.size),
                  is_comment ? comment_ : markup_);
    }
    setCurrentBlockState(state.Packed());
}

}  // namespace quorrel
