#include <gtest/gtest.h>

#include <signal.h>

#include <QApplication>
#include <QCheckBox>
#include <QInputDialog>
#include <QLabel>
#include <QLineEdit>
#include <QSpinBox>
#include <QToolButton>
#include <QWebEnginePage>

#include "platform/failure.hpp"
#include "ui/modal_script.hpp"
#include "ui/surface_fixture.hpp"

namespace quorrel::test {
namespace {

using namespace surface_command;
using Life = SurfaceFixture;

template <typename Call>
int NumberRaisedBy(Call call) {
    try {
        call();
    } catch (const RuntimeError& error) {
        return error.Number();
    }
    return 0;
}

TEST_F(Life, ADocumentThatCannotBeEditedLeavesTheOldOne) {
    OpenBody("<p>old</p>");
    const std::string old = surface.DocumentHTML();
    folder.Write("frames.htm", "<html><frameset cols=*><frame src=a></frameset></html>");
    EXPECT_EQ(NumberRaisedBy([&] { surface.LoadDocument(folder.Windows("frames.htm")); }),
              surface_error::kFrameset);
    EXPECT_EQ(NumberRaisedBy([&] { surface.LoadDocument(folder.Windows("none.htm")); }), 53);
    EXPECT_EQ(surface.DocumentHTML(), old);
    EXPECT_FALSE(surface.Busy());
    CaretAfter("old");
    EXPECT_TRUE(surface.CurrentDocumentPath().ends_with("topic.htm"));
}

TEST_F(Life, ATextSetBeforeTheLoadBeginsTakesOneLoadOnly) {
    int loads = 0;
    OpenBody("<p>first</p>");
    QObject::connect(surface.View()->page(), &QWebEnginePage::loadStarted, &surface,
                     [&] { ++loads; });
    surface.LoadDocument(folder.Windows("topic.htm"));
    surface.SetBaseURL("file://x");
    surface.SetDocumentHTML("<body><p>second</p></body>");
    EXPECT_EQ(surface.BaseURL(), "");
    EXPECT_TRUE(surface.IsDirty());
    WaitUntilThere();
    EXPECT_EQ(loads, 1);
    EXPECT_EQ(surface.DOM().body()->innerHTML(), "<P>second</P>");
    EXPECT_EQ(surface.CurrentDocumentPath(), folder.Windows("topic.htm"));
}

TEST_F(Life, ATopicIsShownAndWrittenInItsOwnEncoding) {
    struct EncodingCase {
        const char* bytes;
        const char* shown;
        const char* typed;
        const char* written;
    };
    for (const EncodingCase& each : std::vector<EncodingCase>{
             {"<meta charset=\"shift_jis\"><p>\x93\xfa</p>", "\u65e5", "\u672c\u00e4",
              "<p>\x93\xfa\x96\x7b&#228;</p>"},
             {"<meta charset=\"windows-1251\"><p>\xe4</p>", "\u0434", "\u0436\u65e5",
              "<p>\xe4\xe6&#26085;</p>"},
             {"<p>\xc3\xa4</p>", "\u00e4", "\u65e5", "<p>\xc3\xa4\u65e5</p>"},
             {"\xEF\xBB\xBF<p>x</p>", "x", "\u00e4", "\xEF\xBB\xBF"},
         }) {
        Open(each.bytes);
        EXPECT_EQ(surface.DOM().body()->createTextRange()->Text(), each.shown);
        CaretAfter(each.shown);
        Range()->pasteHTML(each.typed);
        surface.SaveDocument(folder.Windows("topic.htm"));
        EXPECT_NE(folder.Read("topic.htm").find(each.written), std::string::npos)
            << folder.Read("topic.htm");
        EXPECT_FALSE(surface.IsDirty());
        EXPECT_TRUE(Can(DECMD_UNDO));
    }
}

TEST_F(Life, EditsAfterSavingAreTakenFromTheSourceStill) {
    OpenBody("<P>one<P>two");
    CaretAfter("one");
    Range()->pasteHTML("1");
    surface.SaveDocument(folder.Windows("other.htm"));
    EXPECT_EQ(surface.CurrentDocumentPath(), folder.Windows("other.htm"));
    CaretAfter("two");
    Range()->pasteHTML("2");
    EXPECT_EQ(surface.DOM().body()->innerHTML(), "<P>one1</P><P>two2</P>");
    EXPECT_TRUE(surface.IsDirty());
    Do(DECMD_UNDO);
    EXPECT_FALSE(surface.IsDirty());
    EXPECT_EQ(surface.DocumentHTML(), folder.Read("other.htm"));
}

TEST_F(Life, AnEmptyDocumentShowsTheHint) {
    OpenBody("<p>one</p>");
    surface.NewDocument();
    EXPECT_FALSE(surface.Busy());
    EXPECT_EQ(surface.DocumentHTML(), "");
    EXPECT_EQ(surface.CurrentDocumentPath(), "");
    EXPECT_EQ(surface.DOM().body(), nullptr);
    EXPECT_EQ(surface.DOM().selection().createRange(), nullptr);
    EXPECT_FALSE(surface.IsDirty());
    surface.ShowHint("Wait & see");
    EXPECT_TRUE(surface.Widget()->findChild<QLabel*>("TopicHint")->isVisible());
    EXPECT_FALSE(surface.View()->isVisible());
    OpenBody("<p>two</p>");
    EXPECT_TRUE(surface.View()->isVisible());
}

TEST_F(Life, WhatTheEngineTakesWithItIsNotSavedAsTheOldText) {
    OpenBody("<p>one</p>");
    CaretAfter("one");
    Range()->pasteHTML("2");
    ::kill(static_cast<pid_t>(surface.View()->page()->renderProcessPid()), SIGKILL);
    EXPECT_EQ(NumberRaisedBy([&] {
                  for (int i = 0; i < 1000; ++i) (void)surface.DOM().body()->innerHTML();
              }),
              57);
    ASSERT_TRUE(
        WaitFor([&] { return surface.Widget()->findChild<QLabel*>("TopicHint")->isVisible(); }));
    EXPECT_EQ(NumberRaisedBy([&] { (void)surface.DocumentHTML(); }), 57);
    EXPECT_TRUE(surface.IsDirty());
    OpenBody("<p>again</p>");
    EXPECT_EQ(Body(), "<p>again</p>");
    CaretAfter("again");
    Type("x");
    EXPECT_TRUE(BodyBecomes("<p>againx</p>"));
}

TEST_F(Life, FiveMegabytesCanBeTypedInto) {
    std::string body;
    for (int i = 0; body.size() < 5000000; ++i) {
        body += "<p>Paragraph " + std::to_string(i) + " of <b>many</b>. ";
        for (int word = 0; word < 150; ++word) body += "word ";
        body += "</p>\n";
    }
    OpenBody(body + "<p>the end</p>");
    CaretAfter("the end");
    Type("xyz");
    const auto ends_with = [&](const char* end) {
        return WaitFor([&] { return surface.IsDirty(); }) &&
               WaitFor([&] { return surface.DOM().body()->innerHTML().ends_with(end); });
    };
    ASSERT_TRUE(ends_with("<P>the endxyz</P>"));
    Key(Qt::Key_Backspace);
    Key(Qt::Key_Return);
    Type("new");
    EXPECT_TRUE(ends_with("<P>the endxy</P><P>new</P>"));
    EXPECT_NE(surface.DocumentHTML().find("<p>new</p>"), std::string::npos);
}

TEST_F(Life, TheFindBarWalksThroughTheHits) {
    OpenBody("<p>Cat and cat and CAT</p>");
    Select("and");
    Do(DECMD_FINDTEXT);
    auto* text = surface.Widget()->findChild<QLineEdit*>("FindText");
    ASSERT_NE(text, nullptr);
    EXPECT_TRUE(text->isVisible());
    EXPECT_EQ(text->text(), "and");
    text->setText("cat");
    Select("and");
    const auto press = [&](const char* name) {
        surface.Widget()->findChild<QToolButton*>(name)->click();
        return BodyWithSelection();
    };
    EXPECT_EQ(press("FindNext"), "<p>Cat and [cat] and CAT</p>");
    EXPECT_EQ(press("FindNext"), "<p>Cat and cat and [CAT]</p>");
    EXPECT_EQ(press("FindNext"), "<p>[Cat] and cat and CAT</p>");
    EXPECT_EQ(press("FindPrevious"), "<p>Cat and cat and [CAT]</p>");
    surface.Widget()->findChild<QCheckBox*>("FindMatchCase")->setChecked(true);
    EXPECT_EQ(press("FindPrevious"), "<p>Cat and [cat] and CAT</p>");
    EXPECT_EQ(press("FindPrevious"), "<p>Cat and [cat] and CAT</p>");
    text->setText("dog");
    EXPECT_EQ(press("FindNext"), "<p>Cat and [cat] and CAT</p>");
    QTest::keyClick(text, Qt::Key_Escape);
    EXPECT_FALSE(text->isVisible());
}

TEST_F(Life, PromptsAskForWhatACommandNeeds) {
    OpenBody("<p>one two</p>");
    Select("one");
    ModalScript dialogs;
    dialogs.Expect("FormFont", [](QWidget& dialog) {
        dialog.findChild<QSpinBox*>("FontSize")->setValue(6);
        dialog.findChild<QCheckBox*>("FontBold")->setChecked(true);
        static_cast<QDialog&>(dialog).accept();
    });
    surface.ExecCommand(DECMD_FONT, CommandOption::kPromptUser, {});
    EXPECT_EQ(Body(), "<p><font size=\"6\"><b>one</b></font> two</p>");
    Do(DECMD_UNDO);
    EXPECT_EQ(Body(), "<p>one two</p>");
    Select("two");
    dialogs.Expect("HyperlinkAddress", [](QWidget& dialog) {
        static_cast<QInputDialog&>(dialog).setTextValue("x.htm");
        static_cast<QDialog&>(dialog).accept();
    });
    surface.ExecCommand(DECMD_HYPERLINK, CommandOption::kPromptUser, {});
    EXPECT_EQ(Body(), "<p>one <a href=\"x.htm\">two</a></p>");
}

TEST_F(Life, TheTabKeyGoesThroughTables) {
    OpenBody("<p>x</p><table><tbody><tr><td>a</td><td>b</td></tr></tbody></table>");
    CaretAfter("a");
    Key(Qt::Key_Tab);
    Type("B");
    ASSERT_TRUE(BodyBecomes("<p>x</p><table><tbody><tr><td>a</td><td>B</td></tr></tbody></table>"));
    Key(Qt::Key_Tab);
    Type("c");
    ASSERT_TRUE(BodyBecomes(
        "<p>x</p><table><tbody><tr><td>a</td><td>B</td></tr><tr><td>c</td><td><br></td></tr>"
        "</tbody></table>"));
    Key(Qt::Key_Tab, Qt::ShiftModifier);
    Type("D");
    EXPECT_TRUE(BodyBecomes(
        "<p>x</p><table><tbody><tr><td>a</td><td>D</td></tr><tr><td>c</td><td><br></td></tr>"
        "</tbody></table>"));
    CaretAfter("x");
    Key(Qt::Key_Tab);
    EXPECT_TRUE(WaitFor([&] { return Body().starts_with("<p>x&nbsp;&nbsp;&nbsp;&nbsp;</p>"); }));
}

TEST_F(Life, JoinedParagraphsGetNoStylesOfTheEngine) {
    OpenBody("<h1>Head</h1><p>one</p><p>two</p>");
    CaretAfter("Head");
    Key(Qt::Key_Delete);
    EXPECT_TRUE(BodyBecomes("<h1>Headone</h1><p>two</p>"));
    Select("done\ntw");
    Type("X");
    EXPECT_TRUE(BodyBecomes("<h1>HeaXo</h1>"));
    Do(DECMD_UNDO);
    Do(DECMD_UNDO);
    EXPECT_EQ(Body(), "<h1>Head</h1><p>one</p><p>two</p>");
    Key(Qt::Key_Return, Qt::ShiftModifier);
    EXPECT_TRUE(WaitFor([&] { return Body().find("<br>") != std::string::npos; }));
}

}  // namespace
}  // namespace quorrel::test
