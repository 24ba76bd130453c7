#include "ui/text_limit.hpp"

#include <gtest/gtest.h>

#include <QLineEdit>
#include <QPlainTextEdit>
#include <QTest>
#include <QToolTip>

#include "platform/text.hpp"
#include "ui/listen.hpp"
#include "ui/qt_text.hpp"

namespace quorrel::test {
namespace {

TEST(TextLimit, AFieldTakesNoMoreAndLosesNothing) {
    TextBox control;
    control.max_length = 5;
    QLineEdit edit;
    FollowTextBox(&edit, control);
    edit.show();
    edit.insert(QString::fromUtf8("abcd\u00E9"));
    QTest::keyClicks(&edit, "fg");
    EXPECT_EQ(control.Text(), "abcd\u00E9");
    EXPECT_EQ(QToolTip::text(), "No more than 5 characters can be kept here.");
    edit.setCursorPosition(2);
    edit.insert("xyz");
    EXPECT_EQ(control.Text(), "abcd\u00E9") << "nothing of what was there gives way";
    control.Text = std::string("longer than that");
    EXPECT_EQ(edit.text(), "longer than that");
    edit.end(false);
    QTest::keyClicks(&edit, "!");
    QTest::keyClick(&edit, Qt::Key_Backspace);
    EXPECT_EQ(control.Text(), "longer than tha");
}

TEST(TextLimit, LinesCountWithTheirEnds) {
    TextBox control;
    control.max_length = 8;
    QPlainTextEdit edit;
    LimitLength(&edit, control);
    QObject::connect(&edit, &QPlainTextEdit::textChanged, &edit,
                     [&] { control.Text = ReplaceAll(FromQt(edit.toPlainText()), "\n", "\r\n"); });
    edit.show();
    edit.insertPlainText(QString::fromUtf8("ab\n\U0001F600z"));
    EXPECT_EQ(control.Text(), "ab\r\n\U0001F600z");
    edit.moveCursor(QTextCursor::Start);
    edit.insertPlainText(QString::fromUtf8("\U0001F601\n12"));
    EXPECT_EQ(control.Text(), "\U0001F601ab\r\n\U0001F600z") << "the beginning, as far as it fits";
    QTest::keyClicks(&edit, "34");
    EXPECT_EQ(control.Text(), "\U0001F6013ab\r\n\U0001F600z");
}

}  // namespace
}  // namespace quorrel::test
