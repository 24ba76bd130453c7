#include <gtest/gtest.h>

#include "platform/failure.hpp"
#include "ui/surface_fixture.hpp"

namespace quorrel::test {
namespace {

using namespace surface_command;
using Editing = SurfaceFixture;

TEST_F(Editing, AnUneditedTopicComesBackAsItWasWritten) {
    const std::string html =
        "<HTML>\r\n<Head><TITLE>x</title>\r\n<body BGCOLOR=white>\r\n<P>a<P>b <!OBJECT id=1>"
        "<!/OBJECT>\r\n<tr>";
    Open(html);
    EXPECT_EQ(surface.DocumentHTML(), html);
    EXPECT_FALSE(surface.IsDirty());
}

TEST_F(Editing, TypedTextIsThereAndMakesTheDocumentDirty) {
    OpenBody("<p>one two</p>");
    CaretAfter("one");
    EXPECT_FALSE(surface.IsDirty());
    Type("X");
    EXPECT_TRUE(BodyBecomes("<p>oneX two</p>"));
    EXPECT_TRUE(surface.IsDirty());
    surface.DocumentSaved(folder.Windows("topic.htm"));
    EXPECT_FALSE(surface.IsDirty());
    Type("Y");
    EXPECT_TRUE(BodyBecomes("<p>oneXY two</p>"));
    EXPECT_TRUE(surface.IsDirty());
}

TEST_F(Editing, UndoGoesBackOverTypingCommandsAndPastes) {
    OpenBody("<p>one two</p>");
    CaretAfter("two");
    Type("3 4");
    ASSERT_TRUE(BodyBecomes("<p>one two3 4</p>"));
    Select("one");
    Do(DECMD_BOLD);
    CaretAfter("one");
    Range()->pasteHTML("<i>!</i>");
    ASSERT_EQ(Body(), "<p><b>one<i>!</i></b> two3 4</p>");
    const char* states[] = {"<p><b>one</b> two3 4</p>", "<p>one two3 4</p>",
                            "<p>one two3&nbsp;</p>", "<p>one two</p>"};
    for (const char* state : states) {
        ASSERT_TRUE(Can(DECMD_UNDO));
        Do(DECMD_UNDO);
        EXPECT_TRUE(BodyBecomes(state));
    }
    EXPECT_FALSE(Can(DECMD_UNDO));
    EXPECT_FALSE(surface.IsDirty());
    for (int i = 0; i < 4; ++i) Do(DECMD_REDO);
    EXPECT_EQ(Body(), "<p><b>one<i>!</i></b> two3 4</p>");
    EXPECT_FALSE(Can(DECMD_REDO));
}

TEST_F(Editing, KeysUndoAndRedo) {
    OpenBody("<p>one</p>");
    CaretAfter("one");
    Type("A");
    Key(Qt::Key_Return);
    Type("B");
    ASSERT_TRUE(BodyBecomes("<p>oneA</p><p>B</p>"));
    Key(Qt::Key_Z, Qt::ControlModifier);
    Key(Qt::Key_Z, Qt::ControlModifier);
    EXPECT_TRUE(BodyBecomes("<p>oneA</p>"));
    Key(Qt::Key_Y, Qt::ControlModifier);
    EXPECT_TRUE(BodyBecomes("<p>oneA</p><p><br></p>"));
    Key(Qt::Key_Z, Qt::ControlModifier | Qt::ShiftModifier);
    EXPECT_TRUE(BodyBecomes("<p>oneA</p><p>B</p>"));
    Type("C");
    EXPECT_TRUE(BodyBecomes("<p>oneA</p><p>BC</p>"));
}

TEST_F(Editing, TheMarkerLeavesNoTrace) {
    OpenBody("<p>one <b>two</b> three</p><table><tbody><tr><td>c</td></tr></tbody></table>");
    CaretAfter("three");
    Type("X");
    ASSERT_TRUE(WaitFor([&] { return surface.IsDirty(); }));
    Do(DECMD_UNDO);
    ASSERT_FALSE(surface.IsDirty());
    Select("two");
    const std::string html = surface.DocumentHTML();

    const auto range = Range();
    range->pasteHTML("QRLSEL28" + range->HTMLText());
    EXPECT_EQ(
        Body(),
        "<p>one <b>QRLSEL28two</b> three</p><table><tbody><tr><td>c</td></tr></tbody></table>");
    Do(DECMD_UNDO);
    EXPECT_EQ(surface.DocumentHTML(), html);
    EXPECT_FALSE(surface.IsDirty());
    EXPECT_FALSE(Can(DECMD_UNDO));
    EXPECT_EQ(BodyWithSelection(),
              "<p>one <b>[two]</b> three</p><table><tbody><tr><td>c</td></tr></tbody></table>");

    Range()->parentElement()->insertAdjacentHTML("AfterBegin", "QRLSEL28");
    EXPECT_NE(surface.DocumentHTML(), html);
    Do(DECMD_UNDO);
    EXPECT_EQ(surface.DocumentHTML(), html);
    ASSERT_TRUE(Can(DECMD_REDO));
    Do(DECMD_REDO);
    EXPECT_EQ(Body(),
              "<p>one <b>two</b> threeX</p><table><tbody><tr><td>c</td></tr></tbody></table>");
}

TEST_F(Editing, ThePreservedSourceAndTheTidyForm) {
    Open(
        "<!DOCTYPE html>\r\n<!-- top -->\r\n<html><body><P>a</P>\r\n<!OBJECT id=p><!/OBJECT>"
        "<!- begin expanding section ->\r\n</body></html>\r\n<!-- end -->");
    surface.SetSourceCodePreservation(false);
    EXPECT_EQ(surface.DocumentHTML().find("<!DOCTYPE html>\r\n"), 0U);
    CaretAfter("a");
    Range()->pasteHTML("b");
    const std::string tidy = surface.DocumentHTML();
    for (const char* part :
         {"<!DOCTYPE html>", "<!-- top -->", "<p>ab</p>\r\n",
          "<!OBJECT id=p><!/OBJECT><!- begin expanding section ->", "<!-- end -->"}) {
        EXPECT_NE(tidy.find(part), std::string::npos) << part << " in " << tidy;
    }
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
    const auto raises = [](auto call) {
        try {
            call();
        } catch (const RuntimeError& error) {
            return error.Number();
        }
        return 0;
    };
    EXPECT_EQ(raises([&] { (void)element->outerHTML(); }), 91);
    EXPECT_EQ(Body(), "<p>one <i>2</i></p>");
    EXPECT_EQ(raises([&] { surface.DOM().body()->insertAdjacentHTML("Inside", "x"); }), 5);
    surface.SetDocumentHTML("<p>other</p>");
    EXPECT_EQ(raises([&] { (void)range->Text(); }), 91);
    EXPECT_EQ(surface.DOM().body(), nullptr);
    EXPECT_EQ(raises([&] { Do(DECMD_BOLD); }), 445);
    WaitUntilThere();
    EXPECT_EQ(raises([&] { (void)range->Text(); }), 91);
    EXPECT_EQ(raises([&] { Do(4711); }), 5);
}

}  // namespace
}  // namespace quorrel::test
