#include "ui/source_text.hpp"

#include <QStringDecoder>
#include <QTextBlock>
#include <QTextCharFormat>
#include <array>
#include <vector>

namespace quorrel {
namespace {

// The document separates lines by one character of its own. That character's format says which
// line end it stands for, and goes and comes back with it through cutting, joining and undo.
constexpr int kLineEndProperty = QTextFormat::UserProperty + 1;

/// What a separator may stand for. The last three are no line ends, but the document knows no
/// other way to hold these characters.
enum LineEnd { kNoneSet, kCrLf, kLf, kCr, kParagraph, kFrameBegin, kFrameEnd, kLineEndKinds };

constexpr std::array<const char*, kLineEndKinds> kLineEndBytes = {"\r\n",   "\r\n",   "\n",    "\r",
                                                                  "\u2029", "\uFDD0", "\uFDD1"};

LineEnd LineEndAt(QStringView text, qsizetype at) {
    switch (text[at].unicode()) {
        case u'\r':
            return at + 1 < text.size() && text[at + 1] == u'\n' ? kCrLf : kCr;
        case u'\n':
            return kLf;
        case 0x2029:
            return kParagraph;
        case 0xFDD0:
            return kFrameBegin;
        case 0xFDD1:
            return kFrameEnd;
        default:
            return kNoneSet;
    }
}

bool IsForNewLines(int end) {
    return end == kCrLf || end == kLf || end == kCr;
}

QTextCharFormat FormatOf(int end) {
    QTextCharFormat format;
    format.setProperty(kLineEndProperty, end);
    return format;
}

/// QString's own conversion drops a byte-order mark.
QString FromUtf8(std::string_view text) {
    QStringDecoder decoder(QStringDecoder::Utf8, QStringDecoder::Flag::ConvertInitialBom);
    return decoder(QByteArrayView(text.data(), static_cast<qsizetype>(text.size())));
}

/// A stretch of whole lines that end alike.
struct Run {
    qsizetype begin = 0;
    qsizetype end = 0;
    LineEnd line_end = kNoneSet;
};

/// The stretches of `text`; the last line, which has no end, goes with the one before.
std::vector<Run> RunsOf(QStringView text) {
    std::vector<Run> runs;
    qsizetype line = 0;
    for (qsizetype at = 0; at < text.size(); ++at) {
        const LineEnd end = LineEndAt(text, at);
        if (end == kNoneSet) continue;
        if (end == kCrLf) ++at;
        if (runs.empty() || runs.back().line_end != end) runs.push_back({line, line, end});
        runs.back().end = line = at + 1;
    }
    if (runs.empty()) runs.push_back({0, 0, kCrLf});
    runs.back().end = text.size();
    return runs;
}

}  // namespace

void SetSourceText(QTextDocument& document, std::string_view text) {
    const QString all = FromUtf8(text);
    const bool has_history = document.isUndoRedoEnabled();
    document.setUndoRedoEnabled(false);
    QTextCursor cursor(&document);
    cursor.beginEditBlock();
    cursor.select(QTextCursor::Document);
    cursor.removeSelectedText();
    const std::vector<Run> runs = RunsOf(all);
    cursor.setBlockCharFormat(FormatOf(runs.front().line_end));
    for (const Run& run : runs) {
        cursor.insertText(all.mid(run.begin, run.end - run.begin), FormatOf(run.line_end));
    }
    cursor.endEditBlock();
    document.setUndoRedoEnabled(has_history);
    document.setModified(false);
}

std::string SourceText(const QTextDocument& document) {
    const QString raw = document.toRawText();
    const QList<QTextFormat> formats = document.allFormats();
    std::string result;
    result.reserve(static_cast<std::size_t>(raw.size()) + raw.size() / 16);
    QTextBlock block = document.begin();
    for (qsizetype from = 0; block.isValid();) {
        const qsizetype size = block.length() - 1;
        const QByteArray line = QStringView(raw).mid(from, size).toUtf8();
        result.append(line.constData(), static_cast<std::size_t>(line.size()));
        from += size + 1;
        block = block.next();
        if (!block.isValid()) break;
        // A block's own character format is that of the separator before it.
        const int end = formats.at(block.charFormatIndex()).intProperty(kLineEndProperty);
        result += kLineEndBytes.at(static_cast<std::size_t>(end));
    }
    return result;
}

/// The kind of a line end that is made at `position`.
static int LineEndForNewLine(const QTextCursor& cursor, int position) {
    QTextCursor at = cursor;
    at.setPosition(position);
    int end = at.charFormat().intProperty(kLineEndProperty);
    for (QTextBlock above = at.block(); !IsForNewLines(end) && above.isValid();) {
        end = above.charFormat().intProperty(kLineEndProperty);
        above = above.previous();
    }
    return IsForNewLines(end) ? end : kCrLf;
}

void InsertSourceText(QTextCursor cursor, const QString& text) {
    cursor.insertText(text, FormatOf(LineEndForNewLine(cursor, cursor.selectionStart())));
}

QString SelectedSourceText(const QTextCursor& cursor) {
    QString text = cursor.selectedText();
    return text.replace(QChar::ParagraphSeparator, u'\n');
}

}  // namespace quorrel
