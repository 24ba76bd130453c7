#include "ui/source_view.hpp"

#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QClipboard>
#include <QLabel>
#include <QLineEdit>
#include <QTest>
#include <QTextBlock>

#include <memory>
#include <random>
#include <string>
#include <vector>

#include "ui/html_highlighter.hpp"
#include "ui/qt_text.hpp"
#include "ui/source_editor.hpp"
#include "ui/source_text.hpp"

namespace quorrel::test {
namespace {

struct Source : testing::Test {
    void SetAndShow(std::string_view text) {
        view.SetText(text);
        view.Widget()->resize(500, 300);
        view.Widget()->show();
        view.SetFocus();
        ASSERT_TRUE(QTest::qWaitForWindowActive(view.Widget()));
    }
    void Select(int from, int to) {
        QTextCursor cursor = view.Editor()->textCursor();
        cursor.setPosition(from);
        cursor.setPosition(to, QTextCursor::KeepAnchor);
        view.Editor()->setTextCursor(cursor);
    }
    void Type(Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(view.Editor(), key, modifiers);
    }
    void Type(const QString& text) { QTest::keyClicks(view.Editor(), text); }
    template <typename Widget>
    Widget* Find(const char* name) {
        return view.Widget()->findChild<Widget*>(name);
    }

    SourceView view;
};

TEST_F(Source, NewLinesEndAsTheirNeighboursAndOthersKeepTheirEnd) {
    SetAndShow("one\r\ntwo\nthree\rfo\u2029ur");
    Select(1, 1);  // in "one"
    Type(Qt::Key_Return);
    Select(6, 6);  // in "two"
    Type(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_EQ(view.Text(), "o\r\nne\r\nt\nwo\nthree\rfo\u2029ur");
    view.Editor()->moveCursor(QTextCursor::End);
    Type(Qt::Key_Enter);
    Type("!");
    EXPECT_EQ(view.Text(), "o\r\nne\r\nt\nwo\nthree\rfo\u2029ur\r!");
    Select(1, 10);  // joins "o" and "three"
    Type(Qt::Key_Delete);
    EXPECT_EQ(view.Text(), "othree\rfo\u2029ur\r!");
    for (int i = 0; i < 8; ++i) view.Undo();
    EXPECT_EQ(view.Text(), "one\r\ntwo\nthree\rfo\u2029ur");
    for (int i = 0; i < 8; ++i) view.Redo();
    EXPECT_EQ(view.Text(), "othree\rfo\u2029ur\r!");
}

TEST_F(Source, CopiedAndPastedTextKeepsItsCharacters) {
    SetAndShow("a\u00A0b\nc\U0001F600");
    view.SelectAll();
    view.Cut();
    EXPECT_EQ(FromQt(QApplication::clipboard()->text()), "a\u00A0b\nc\U0001F600");
    QApplication::clipboard()->setText("1\r\n2\r3\u00A0");
    view.Paste();
    EXPECT_EQ(view.Text(), "1\n2\n3\u00A0");
    view.Undo();
    view.Undo();
    EXPECT_EQ(view.Text(), "a\u00A0b\nc\U0001F600");
}

/// The text as the list of its characters, a line end being one of them.
using Units = std::vector<std::string>;

std::string Join(const Units& units) {
    std::string text;
    for (const std::string& unit : units) text += unit;
    return text;
}

/// A text with every kind of line end and every character that a toolkit likes to change; "\r" and
/// "\n" as neighbours would be one line end.
Units RandomUnits(std::mt19937& random) {
    static const Units pieces = {
        "\r\n",   "\n",         "\r",     "a",      " ",      "\u00A0",     "\u2028",
        "\u2029", "\U0010FE80", "\uFDD0", "\uFDD1", "\uFFFC", "\U0001F600", "\f",
        "\t",     "\uFEFF",     "\v",     "\x7F",   "\uFFFE", "\u00E4",     std::string(1, '\0'),
        "\u200B", "\u0085"};
    Units units;
    for (unsigned count = random() % 30; count > 0; --count) {
        const std::string& piece = pieces[random() % pieces.size()];
        if (units.empty() || units.back() != "\r" || piece != "\n") units.push_back(piece);
    }
    return units;
}

int Position(const Units& units, std::size_t index) {
    int position = 0;
    for (std::size_t i = 0; i < index; ++i) {
        position += units[i] == "\r\n" ? 1 : static_cast<int>(ToQt("x" + units[i]).size()) - 1;
    }
    return position;
}

/// One random edit of both: deletes a stretch, then types or pastes something in its place.
void EditBoth(std::mt19937& random, QTextDocument& document, Units& units) {
    std::size_t from = random() % (units.size() + 1);
    std::size_t to = random() % (units.size() + 1);
    if (from > to) std::swap(from, to);
    if (random() % 2 == 0) to = std::min(from + 1, to);
    QTextCursor cursor(&document);
    cursor.setPosition(Position(units, from));
    cursor.setPosition(Position(units, to), QTextCursor::KeepAnchor);
    const auto at = [&](std::size_t index) { return units.begin() + std::ptrdiff_t(index); };
    units.erase(at(from), at(to));
    if (random() % 4 == 0) return cursor.removeSelectedText();
    InsertSourceText(cursor, "y\nz");
    units.insert(at(from), {"y", "?", "z"});
    // Whatever the new line end is, it must be one; from then on it has to stay.
    const std::string after = SourceText(document);
    const std::string end = after.substr(Join(Units(units.begin(), at(from + 1))).size(), 2);
    units[from + 1] = end == "\r\n" ? end : end.substr(0, 1);
    EXPECT_EQ(units[from + 1].find_first_of("\r\n"), 0U);
}

TEST(SourceTextInADocument, KeepsEveryCharacterThroughRandomEdits) {
    std::mt19937 random(7);
    for (int round = 0; round < 300; ++round) {
        SCOPED_TRACE(round);
        QTextDocument document;
        document.setDocumentLayout(new QPlainTextDocumentLayout(&document));
        Units units = RandomUnits(random);
        SetSourceText(document, Join(units));
        const std::string first = Join(units);
        ASSERT_EQ(SourceText(document), first);
        for (unsigned edits = 1 + random() % 12; edits > 0; --edits) {
            EditBoth(random, document, units);
            ASSERT_EQ(SourceText(document), Join(units));
        }
        while (document.isUndoAvailable()) document.undo();
        ASSERT_EQ(SourceText(document), first);
        while (document.isRedoAvailable()) document.redo();
        ASSERT_EQ(SourceText(document), Join(units));
    }
}

TEST_F(Source, ATextThatIsSetBeginsANewHistoryAndEveryChangeIsTold) {
    int changes = 0;
    view.Change = [&] { ++changes; };
    view.SetText("unseen");
    view.SelectAll();
    view.Cut();
    EXPECT_EQ(view.Text(), "");
    view.Undo();
    EXPECT_EQ(view.Text(), "unseen");
    EXPECT_EQ(changes, 3);
    SetAndShow("second");
    view.Undo();
    EXPECT_EQ(view.Text(), "second");
    Type("y");
    EXPECT_EQ(changes, 5);
    // As saving does. The caret stays where the author works.
    view.SetText(view.Text());
    EXPECT_EQ(view.Editor()->textCursor().position(), 1);
    view.Undo();
    EXPECT_EQ(view.Text(), "ysecond");
    EXPECT_EQ(changes, 6);
}

TEST_F(Source, ColorsFollowAnEditAcrossLines) {
    SetAndShow("a<b>\nc<i>d");
    const auto color_at = [&](int line, int column) {
        const QTextBlock block = view.Editor()->document()->findBlockByNumber(line);
        for (const auto& range : block.layout()->formats()) {
            if (column >= range.start && column < range.start + range.length) {
                return range.format.foreground().color().name();
            }
        }
        return QString();
    };
    EXPECT_EQ(color_at(0, 0), "");
    EXPECT_EQ(color_at(0, 1), "#0000ff");
    EXPECT_EQ(color_at(1, 3), "#0000ff");
    Type("<!--");
    EXPECT_EQ(color_at(1, 3), "#008000");
    const QPalette dark(QColor(40, 40, 40));
    EXPECT_GT(SourceColorOn(SourceToken::kTag, dark).lightness(), 150);
    EXPECT_EQ(SourceColorOn(SourceToken::kText, dark), dark.color(QPalette::Text));
}

TEST_F(Source, TheFindBarFindsAndGoesAround) {
    SetAndShow("Word sword word\nWORD");
    Type(Qt::Key_F, Qt::ControlModifier);
    auto* line = Find<QLineEdit>("FindText");
    auto* message = Find<QLabel>("FindMessage");
    ASSERT_TRUE(line->hasFocus());
    /// Where the selection begins after the key; it is always as long as the word.
    const auto hit = [&](Qt::Key key, Qt::KeyboardModifiers modifiers = {}) {
        QTest::keyClick(QApplication::focusWidget(), key, modifiers);
        const QTextCursor cursor = view.Editor()->textCursor();
        EXPECT_EQ(cursor.selectionEnd() - cursor.selectionStart(), 4);
        return cursor.selectionStart();
    };
    QTest::keyClicks(line, "wor");
    EXPECT_EQ(hit(Qt::Key_D), 0);
    EXPECT_EQ(hit(Qt::Key_Return), 6);
    Find<QAbstractButton>("FindWholeWords")->setChecked(true);
    EXPECT_EQ(hit(Qt::Key_F3), 16);
    EXPECT_EQ(message->text(), "");
    EXPECT_EQ(hit(Qt::Key_F3), 0);
    EXPECT_EQ(message->text(), FindBar::WrappedMessage(FindBar::Step::kNext));
    EXPECT_EQ(hit(Qt::Key_F3, Qt::ShiftModifier), 16);
    EXPECT_EQ(hit(Qt::Key_Escape), 16);
    EXPECT_TRUE(view.Editor()->hasFocus());
    EXPECT_FALSE(Find<FindBar>("FindBar")->isVisible());
    Find<QAbstractButton>("FindMatchCase")->setChecked(true);
    EXPECT_EQ(hit(Qt::Key_F3), 11);
    view.Find();
    line->setText("none");
    EXPECT_EQ(message->text(), FindBar::NotFoundMessage());
    EXPECT_EQ(view.Editor()->textCursor().selectionStart(), 11);

    // While it is in use its line takes the commands.
    view.SelectAll();
    view.Cut();
    EXPECT_EQ(QApplication::clipboard()->text(), "none");
    EXPECT_EQ(view.Text(), "Word sword word\nWORD");
}

TEST_F(Source, OutlivesItsWindow) {
    auto window = std::make_unique<QWidget>();
    view.Widget()->setParent(window.get());
    window.reset();
    view.SetText("bad \xFF bytes");
    view.Cut();
    view.Find();
    view.SetFocus();
    EXPECT_EQ(view.Text(), "bad \xFF bytes");
}

}  // namespace
}  // namespace quorrel::test
