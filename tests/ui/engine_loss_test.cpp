// The engine's process dies while a topic is edited.
#include <QLabel>
#include <QMessageBox>
#include <QPushButton>
#include <QTabBar>
#include <QTest>

#include <csignal>
#include <optional>

#include "editor/preserve_source.hpp"
#include "project/save_project.hpp"
#include "ui/surface_fixture.hpp"
#include "ui/window_fixture.hpp"

namespace quorrel::test {
namespace {

void KillEngine(const WebSurface& surface) {
    ASSERT_TRUE(WaitFor([&] { return !surface.Busy(); }));
    const qint64 process = surface.View()->page()->renderProcessPid();
    ASSERT_GT(process, 0);  // 0 would mean ourselves
    ::kill(static_cast<pid_t>(process), SIGKILL);
}

class EngineLossOfASurface : public SurfaceFixture {
  protected:
    EngineLossOfASurface() {
        surface.EngineLost = [this](EngineLoss found) { loss = found; };
        surface.TextHeard = [this] { ++heard; };
    }
    /// Types and waits until the surface has heard of it, without asking it for the text.
    void TypeAndBeHeard(const QString& text) {
        const int before = heard;
        Type(text);
        EXPECT_TRUE(WaitFor([&] { return heard > before; }));
    }
    /// Kills the engine and waits for what the surface says of it.
    std::optional<EngineLoss> Kill() {
        loss.reset();
        KillEngine(surface);
        EXPECT_TRUE(WaitFor([&] { return loss.has_value(); }));
        return loss;
    }

    std::optional<EngineLoss> loss;
    int heard = 0;
};

TEST_F(EngineLossOfASurface, WhatWasTypedIsShownAgain) {
    Open("<P CLASS=x>one</P>\r\n<p>two</p>\r\n");
    CaretAfter("one");
    TypeAndBeHeard(" more");
    EXPECT_TRUE(surface.IsDirty());
    EXPECT_EQ(Kill(), EngineLoss::kNothing);
    EXPECT_TRUE(surface.IsDirty());
    EXPECT_EQ(surface.DocumentHTML(), "<P CLASS=x>one more</P>\r\n<p>two</p>\r\n")
        << "before it is there";
    WaitUntilThere();
    CaretAfter("two");
    Type("!");
    EXPECT_TRUE(WaitFor([&] {
        return surface.DocumentHTML() == "<P CLASS=x>one more</P>\r\n<p>two!</p>\r\n";
    })) << surface.DocumentHTML();
}

TEST_F(EngineLossOfASurface, ADocumentThatIsSavedStaysClean) {
    OpenBody("<p>one</p>");
    CaretAfter("one");
    Type("2");
    ASSERT_TRUE(BodyBecomes("<p>one2</p>"));
    surface.SaveDocument(folder.Windows("topic.htm"));
    ASSERT_FALSE(surface.IsDirty());
    EXPECT_NE(Kill(), EngineLoss::kView);
    EXPECT_FALSE(surface.IsDirty());
    EXPECT_EQ(Body(), "<p>one2</p>");
}

TEST_F(EngineLossOfASurface, AWaitedCallGivesWhatWasHeard) {
    OpenBody("<p>one</p>");
    CaretAfter("one");
    TypeAndBeHeard("2");
    KillEngine(surface);
    // The surface does not know of it yet.
    EXPECT_EQ(Body(), "<p>one2</p>");
    EXPECT_TRUE(surface.IsDirty());
    EXPECT_TRUE(WaitFor([&] { return loss.has_value(); }));
}

TEST_F(EngineLossOfASurface, TheTextIsKeptWhereTheEngineDoesNotStay) {
    OpenBody("<p>one</p>");
    CaretAfter("one");
    TypeAndBeHeard("2");
    while (Kill() != EngineLoss::kView) {
        ASSERT_TRUE(WaitFor([&] { return surface.DOM().body() != nullptr; }));
    }
    EXPECT_FALSE(surface.Busy());
    EXPECT_TRUE(surface.Widget()->findChild<QLabel*>("TopicHint")->isVisible());
    EXPECT_TRUE(surface.IsDirty());
    surface.SaveDocument(folder.Windows("topic.htm"));
    EXPECT_FALSE(surface.IsDirty());
    EXPECT_NE(folder.Read("topic.htm").find("<p>one2</p>"), std::string::npos);
    OpenBody("<p>again</p>");
    EXPECT_EQ(Body(), "<p>again</p>") << "another document is shown again";
}

TEST_F(EngineLossOfASurface, AMegabyteIsHeardBesideTheTyping) {
    std::string body;
    const std::string paragraph = "<p>One of <b>many</b>. " + std::string(750, 'w') + "</p>\n";
    while (body.size() < 1000000) body += paragraph;
    OpenBody(body + "<p>the end</p>");
    CaretAfter("the end");
    TypeAndBeHeard("a");  // the first time brings the base too
    qint64 longest = 0;
    const int before = heard;
    QElapsedTimer typing;
    typing.start();
    for (int i = 0; typing.elapsed() < 8000; ++i) {
        QElapsedTimer key;
        key.start();
        Type("x");
        QCoreApplication::processEvents();
        longest = std::max(longest, key.elapsed());
        QTest::qWait(30);
    }
    RecordProperty("longest_key_milliseconds", static_cast<int>(longest));
    EXPECT_GT(heard, before) << "also where there is no pause";
    EXPECT_NE(surface.LastHeard().edited.find("the endaxxxx"), std::string::npos);
}

class EngineLossInTheWindow : public WindowFixture {};

TEST_F(EngineLossInTheWindow, ATopicIsSavedAndItsSourceShown) {
    StartAndOpen();
    ASSERT_TRUE(TopicShows("first body"));
    run->surface.SetFocus();
    bool is_heard = false;
    Main().DHTMLEdit1.TextHeard = [&] { is_heard = true; };
    QTest::keyClicks(run->surface.View()->focusProxy(), "Now ");
    ASSERT_TRUE(QTest::qWaitFor([&] { return is_heard; }));
    const auto expect_message = [&] {
        dialogs.Expect("Message", [](QWidget& box) {
            EXPECT_TRUE(static_cast<QMessageBox&>(box).text().startsWith("The web engine stopped"));
            // Whoever types on does not answer it.
            QTest::keyClicks(&box, "o n");
            QTest::keyClick(&box, Qt::Key_Return);
            EXPECT_TRUE(box.isVisible());
            static_cast<QMessageBox&>(box).button(QMessageBox::Ok)->click();
        });
    };
    expect_message();
    KillEngine(run->surface);
    // At once, as an author would who does not know of it.
    Find<QTabBar>("TabStrip2")->setCurrentIndex(right_tab::kSource - 1);
    ASSERT_TRUE(QTest::qWaitFor([&] { return dialogs.IsDone(); }));
    EXPECT_NE(Main().Source1.Text().find("Now first body"), std::string::npos)
        << Main().Source1.Text();
    expect_message();
    KillEngine(run->surface);
    ASSERT_TRUE(QTest::qWaitFor([&] { return dialogs.IsDone(); }));
    EXPECT_TRUE(FileSave_Click(Main()));
    EXPECT_NE(folder.Read("demo & more/html/first.htm").find("Now first body"), std::string::npos);
}

}  // namespace
}  // namespace quorrel::test
