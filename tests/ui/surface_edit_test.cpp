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

#include <array>

#include "ui/modal_script.hpp"
#include "ui/surface_fixture.hpp"

namespace quorrel::test {
namespace {

using namespace surface_command;
using Editing = SurfaceFixture;

TEST_F(Editing, DocumentsComeAndGo) {
    OpenBody("<p>old</p>");
    const std::string old = surface.DocumentHTML();
    folder.Write("frames.htm", "<html><frameset cols=*><frame src=a></frameset></html>");
    EXPECT_EQ(NumberRaisedBy([&] { surface.LoadDocument(folder.Windows("frames.htm")); }),
              surface_error::kFrameset);
    EXPECT_EQ(NumberRaisedBy([&] { surface.LoadDocument(folder.Windows("none.htm")); }), 53);
    EXPECT_EQ(surface.DocumentHTML(), old);
    EXPECT_FALSE(surface.Busy());
    EXPECT_EQ(surface.CurrentDocumentPath(), folder.Windows("topic.htm"));

    // A text that is set before the load begins takes one load only.
    int loads = 0;
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

    surface.NewDocument("gone");
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

TEST_F(Editing, ATopicIsShownAndWrittenInItsOwnEncoding) {
    for (const auto& [bytes, shown, typed, written] : std::vector<std::array<const char*, 4>>{
             {"<meta charset=\"shift_jis\"><p>\x93\xfa</p>", "\u65e5", "\u672c\u00e4",
              "<p>\x93\xfa\x96\x7b&#228;</p>"},
             {"<p>\xc3\xa4</p>", "\u00e4", "\u65e5", "<p>\xc3\xa4\u65e5</p>"},
             {"\xEF\xBB\xBF<p>x</p>", "x", "\u00e4", "\xEF\xBB\xBF"},
         }) {
        Open(bytes);
        EXPECT_EQ(surface.DOM().body()->createTextRange()->Text(), shown);
        CaretAfter(shown);
        Range()->pasteHTML(typed);
        surface.SaveDocument(folder.Windows("topic.htm"));
        EXPECT_NE(folder.Read("topic.htm").find(written), std::string::npos)
            << folder.Read("topic.htm");
        EXPECT_FALSE(surface.IsDirty());
        EXPECT_TRUE(Can(DECMD_UNDO));
    }

    // A picture is found whatever its case.
    folder.Write("Sub/dot.svg", "<svg xmlns=\"http://www.w3.org/2000/svg\" width=\"7\"/>");
    OpenBody("<img src=\"sub/DOT.svg\">");
    EXPECT_TRUE(WaitFor([&] {
        return ValueOf(*surface.View()->page(), "document.images[0].naturalWidth").toInt() == 7;
    }));

    // Edits after saving are taken from the source still.
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

TEST_F(Editing, TheSourceIsKeptUnlessTheTidyFormIsWanted) {
    const std::string html =
        "<!DOCTYPE html>\r\n<!-- top --><html><Body BGCOLOR=white><P>a<P>b\r\n<!OBJECT id=p>"
        "<!/OBJECT><tr><!- begin expanding section ->\r\n</body></html><!-- end -->";
    Open(html);
    EXPECT_EQ(surface.DocumentHTML(), html);
    surface.SetSourceCodePreservation(false);
    EXPECT_EQ(surface.DocumentHTML(), html) << "nothing is edited yet";
    EXPECT_FALSE(surface.IsDirty());
    CaretAfter("b");
    Range()->pasteHTML("c");
    const std::string tidy = surface.DocumentHTML();
    for (const char* part :
         {"<!DOCTYPE html><!-- top -->", "<p>a</p><p>bc",
          "<!OBJECT id=p><!/OBJECT><!- begin expanding section ->", "<!-- end -->"}) {
        EXPECT_NE(tidy.find(part), std::string::npos) << part << " in " << tidy;
    }
}

TEST_F(Editing, UndoGoesBackOverTypingCommandsAndPastes) {
    OpenBody("<p>one two</p>");
    CaretAfter("two");
    Type("3 4");
    Key(Qt::Key_Return);
    ASSERT_TRUE(BodyBecomes("<p>one two3 4</p><p><br></p>"));
    Select("one");
    Do(DECMD_BOLD);
    CaretAfter("one");
    Range()->pasteHTML("<i>!</i>");
    const char* states[] = {"<p><b>one<i>!</i></b> two3 4</p><p><br></p>",
                            "<p><b>one</b> two3 4</p><p><br></p>",
                            "<p>one two3 4</p><p><br></p>",
                            "<p>one two3 4</p>",
                            "<p>one two3&nbsp;</p>",
                            "<p>one two</p>"};
    EXPECT_EQ(Body(), states[0]);
    for (int i = 1; i <= 5; ++i) {
        ASSERT_TRUE(Can(DECMD_UNDO));
        Key(Qt::Key_Z, Qt::ControlModifier);
        EXPECT_TRUE(BodyBecomes(states[i]));
    }
    EXPECT_FALSE(Can(DECMD_UNDO));
    EXPECT_FALSE(surface.IsDirty());
    Key(Qt::Key_Y, Qt::ControlModifier);
    Key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(BodyBecomes(states[3]));
    for (int i = 0; i < 3; ++i) Do(DECMD_REDO);
    EXPECT_EQ(Body(), states[0]);
    EXPECT_FALSE(Can(DECMD_REDO));
    EXPECT_TRUE(surface.IsDirty());
    surface.DocumentSaved(folder.Windows("topic.htm"));
    EXPECT_FALSE(surface.IsDirty());
}

TEST_F(Editing, TheMarkerLeavesNoTraceAndTakesNoRedoAway) {
    OpenBody("<p>one <b>two</b> three</p>");
    CaretAfter("three");
    Type("X");
    ASSERT_TRUE(WaitFor([&] { return surface.IsDirty(); }));
    Do(DECMD_UNDO);
    Select("two");
    EXPECT_EQ(BodyWithSelection(), "<p>one <b>[two]</b> three</p>");
    Range()->parentElement()->insertAdjacentHTML("AfterBegin", "QRLSEL28");
    EXPECT_EQ(Body(), "<p>one <b>QRLSEL28two</b> three</p>");
    Do(DECMD_UNDO);
    EXPECT_EQ(Body(), "<p>one <b>two</b> three</p>");
    EXPECT_FALSE(surface.IsDirty());
    EXPECT_FALSE(Can(DECMD_UNDO));
    ASSERT_TRUE(Can(DECMD_REDO));
    Do(DECMD_REDO);
    EXPECT_EQ(Body(), "<p>one <b>two</b> threeX</p>");
}

TEST_F(Editing, EventsComeFromTheLoop) {
    int completed = 0;
    int displayed = 0;
    surface.DocumentComplete = [&] { ++completed; };
    surface.DisplayChanged = [&] {
        ++displayed;
        Can(DECMD_BOLD);
    };
    OpenBody("<p>one</p>");
    EXPECT_TRUE(WaitFor([&] { return completed == 1; }));
    QTest::qWait(100);
    displayed = 0;
    Do(DECMD_SELECTALL);
    Do(DECMD_BOLD);
    EXPECT_EQ(displayed, 0);
    EXPECT_TRUE(WaitFor([&] { return displayed > 0; }));
    surface.SetDocumentHTML("<p>two</p>");
    EXPECT_TRUE(surface.Busy());
    EXPECT_EQ(surface.DocumentHTML(), "<p>two</p>");
    EXPECT_EQ(completed, 1);
    EXPECT_TRUE(WaitFor([&] { return completed == 2; }));
    EXPECT_TRUE(surface.IsDirty());
}

TEST_F(Editing, DeadObjectsRaise) {
    OpenBody("<p>one <b>two</b></p>");
    Select("two");
    const auto range = Range();
    const auto element = range->parentElement();
    EXPECT_EQ(element->outerHTML(), "<B>two</B>");
    element->SetOuterHTML("<I>2</I>");
    EXPECT_EQ(NumberRaisedBy([&] { (void)element->outerHTML(); }), 91);
    EXPECT_EQ(Body(), "<p>one <i>2</i></p>");
    EXPECT_EQ(NumberRaisedBy([&] { surface.DOM().body()->insertAdjacentHTML("Inside", "x"); }), 5);
    surface.SetDocumentHTML("<p>other</p>");
    EXPECT_EQ(NumberRaisedBy([&] { (void)range->Text(); }), 91);
    EXPECT_EQ(surface.DOM().body(), nullptr);
    EXPECT_EQ(NumberRaisedBy([&] { Do(DECMD_BOLD); }), 445);
    WaitUntilThere();
    EXPECT_EQ(NumberRaisedBy([&] { Do(4711); }), 5);
}

TEST_F(Editing, FiveMegabytesCanBeTypedInto) {
    const std::string paragraph = "<p>One of <b>many</b>. " + std::string(750, 'w') + "</p>\n";
    std::string body;
    while (body.size() < 5000000) body += paragraph;
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

TEST_F(Editing, TheFindBarWalksThroughTheHits) {
    OpenBody("<p>Cat and cat and CAT</p>");
    Select("and");
    Do(DECMD_FINDTEXT);
    auto* text = surface.Widget()->findChild<QLineEdit*>("FindText");
    ASSERT_NE(text, nullptr);
    EXPECT_EQ(text->text(), "and");
    text->setText("cat");
    Select("and");
    const auto press = [&](const char* name) {
        surface.Widget()->findChild<QToolButton*>(name)->click();
        return BodyWithSelection();
    };
    EXPECT_EQ(press("FindNext"), "<p>Cat and [cat] and CAT</p>");
    press("FindNext");
    EXPECT_EQ(press("FindNext"), "<p>[Cat] and cat and CAT</p>");
    EXPECT_EQ(press("FindPrevious"), "<p>Cat and cat and [CAT]</p>");
    surface.Widget()->findChild<QCheckBox*>("FindMatchCase")->setChecked(true);
    EXPECT_EQ(press("FindPrevious"), "<p>Cat and [cat] and CAT</p>");
    text->setText("dog");
    EXPECT_EQ(press("FindNext"), "<p>Cat and [cat] and CAT</p>");
    QTest::keyClick(text, Qt::Key_Escape);
    EXPECT_FALSE(text->isVisible());
}

TEST_F(Editing, PromptsAskForWhatACommandNeeds) {
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
    Select("two");
    dialogs.Expect("HyperlinkAddress", [](QWidget& dialog) {
        static_cast<QInputDialog&>(dialog).setTextValue("x.htm");
        static_cast<QDialog&>(dialog).accept();
    });
    surface.ExecCommand(DECMD_HYPERLINK, CommandOption::kPromptUser, {});
    EXPECT_EQ(Body(), "<p>one <a href=\"x.htm\">two</a></p>");
}

TEST_F(Editing, KeysGoThroughTablesAndJoinParagraphs) {
    const auto table = [](const std::string& rows) {
        return "<p>x</p><table><tbody><tr><td>a</td>" + rows + "</tbody></table>";
    };
    OpenBody(table("<td>b</td></tr>"));
    CaretAfter("a");
    Key(Qt::Key_Tab);
    Type("B");
    ASSERT_TRUE(BodyBecomes(table("<td>B</td></tr>")));
    Key(Qt::Key_Tab);
    Type("c");
    ASSERT_TRUE(BodyBecomes(table("<td>B</td></tr><tr><td>c</td><td><br></td></tr>")));
    Key(Qt::Key_Tab, Qt::ShiftModifier);
    Type("D");
    EXPECT_TRUE(BodyBecomes(table("<td>D</td></tr><tr><td>c</td><td><br></td></tr>")));
    CaretAfter("x");
    Key(Qt::Key_Tab);
    EXPECT_TRUE(WaitFor([&] { return Body().starts_with("<p>x&nbsp;&nbsp;&nbsp;&nbsp;</p>"); }));

    // The engine would write styles into what is joined.
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
