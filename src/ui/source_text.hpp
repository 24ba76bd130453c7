// A text in a QTextDocument, which by itself forgets the kind of each line end.
#pragma once

#include <QTextCursor>
#include <QTextDocument>

#include <string>
#include <string_view>

namespace quorrel {

/// Fills the document, without a history of undo. Every line end remembers its kind, and so does
/// the history of what follows.
void SetSourceText(QTextDocument& document, std::string_view text);

/// The text with the line ends that it was filled with, in UTF-8.
[[nodiscard]] std::string SourceText(const QTextDocument& document);

/// Puts `text` in place of the cursor's selection, in one step of undo. New lines end as the
/// line before them does.
void InsertSourceText(QTextCursor cursor, const QString& text);

/// The selection with "\n" as the line end, every other character as it is.
[[nodiscard]] QString SelectedSourceText(const QTextCursor& cursor);

}  // namespace quorrel
