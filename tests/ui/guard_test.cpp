// No failure of a step ends the program.
#include <QAction>
#include <QMessageBox>
#include <QPushButton>
#include <QTest>

#include <new>
#include <stdexcept>

#include "ui/window_fixture.hpp"

namespace quorrel::test {
namespace {

class Guard : public WindowFixture {
  protected:
    void ExpectFailure(const std::string& text) {
        dialogs.Expect("Message", [text](QWidget& box) {
            const std::string shown = static_cast<QMessageBox&>(box).text().toStdString();
            EXPECT_EQ(shown, "The last step could not be finished:\r\n\r\n" + text +
                                 "\r\n\r\nYour work is still open. Save it before you go on.");
            static_cast<QMessageBox&>(box).button(QMessageBox::Ok)->click();
        });
    }
    bool AllAreTold() {
        return QTest::qWaitFor([&] { return dialogs.IsDone(); }) &&
               QTest::qWaitFor([] { return QApplication::activeModalWidget() == nullptr; });
    }
};

TEST_F(Guard, TellsWhatACommandRaisesAndGoesOn) {
    StartAndOpen();
    ASSERT_TRUE(TopicShows("first body"));
    auto* about = Find<QAction>("AboutQuorrelEdit");
    std::function<void()> failure;
    Main().window.show_about = [&] { failure(); };
    QTest::keyClick(&run->window, Qt::Key_F24);  // the user does something
    struct Case {
        std::function<void()> failure;
        const char* text;
        const char* line;
    };
    for (const auto& [raise, text, line] :
         {Case{[] { throw RuntimeError(run_time_error::kDeviceError, "the disk has gone"); },
               "the disk has gone", "MainForm Event: 57 the disk has gone"},
          {[] { throw std::bad_alloc(); }, "Out of memory", "MainForm Event: 7 Out of memory"},
          {[] { throw std::out_of_range("beyond"); }, "beyond", "MainForm Event: 51 beyond"}}) {
        failure = [&, raise = raise] {
            const Hourglass hourglass(Main().screen);
            raise();
        };
        ExpectFailure(text);
        QTimer::singleShot(0, about, &QAction::trigger);
        EXPECT_TRUE(AllAreTold());
        EXPECT_EQ(Main().log.LastLine(), line);
        EXPECT_EQ(QApplication::overrideCursor(), nullptr) << "the hourglass stayed";
    }
    EXPECT_TRUE(TopicShows("first body"));
    // Within the wait of a routine a failure does not break off that routine.
    bool went_on = false;
    Main().window.show_about = [&] {
        QTimer::singleShot(0, &run->window, [] { throw RuntimeError(5); });
        (void)QTest::qWaitFor(
            [&] { return Main().log.LastLine().starts_with("MainForm Event: 5 "); });
        went_on = true;
    };
    ExpectFailure("Invalid procedure call or argument");
    about->trigger();
    EXPECT_TRUE(AllAreTold());
    EXPECT_TRUE(went_on);
}

TEST_F(Guard, AFailureThatComesAgainAndAgainIsToldOnceForEachStepOfTheUser) {
    StartAndOpen();
    int failures = 0;
    QTimer timer;
    timer.setInterval(0);
    QObject::connect(&timer, &QTimer::timeout, &timer, [&] {
        ++failures;
        throw RuntimeError(failures % 2 == 0 ? 5 : 9);
    });
    for (int i = 0; i < 2; ++i) {
        ExpectFailure(RuntimeError(9).what());
        ExpectFailure(RuntimeError(5).what());
        QTest::keyClick(&run->window, Qt::Key_F24);
        failures = 0;
        timer.start();
        EXPECT_TRUE(AllAreTold());
        EXPECT_TRUE(QTest::qWaitFor([&, last = failures] { return failures > last + 50; }));
        timer.stop();
        QCoreApplication::processEvents();
    }
}

TEST_F(Guard, TheWindowStaysOpenWhereClosingItFails) {
    StartAndOpen();
    ASSERT_TRUE(TopicShows("first body"));
    bool fails = true;
    Main().window.StatusBar1.changed.Connect([&] {
        if (fails) throw RuntimeError(run_time_error::kDeviceError);
    });
    const auto close = [&] {
        Main().project.project_dirty = true;
        dialogs.Expect("Message", [](QWidget& box) {
            static_cast<QMessageBox&>(box).button(QMessageBox::Yes)->click();
        });
        QTimer::singleShot(0, &run->window, [this] { run->window.close(); });
    };
    close();
    ExpectFailure("Device I/O error");
    EXPECT_TRUE(AllAreTold());
    EXPECT_TRUE(run->window.isVisible());
    fails = false;
    close();
    EXPECT_TRUE(QTest::qWaitFor([&] { return !run->window.isVisible(); }));
}

TEST_F(Guard, HalfAGuideIsShownAsFarAsItGoes) {
    WriteProject();
    folder.Write("inst/Help/guide.hhp", "[FILES]\r\nstart.htm\r\n;Title=Start\r\n");
    folder.Write("inst/Help/start.htm", "<title>Start</title><body>how it begins");
    folder.Write("config/quorrel/qrrl_hj.ini",
                 folder.Read("config/quorrel/qrrl_hj.ini") +
                     "[Locations]\r\nmain dir=" + folder.Windows("inst") + "\\\r\n");
    OpenFirst();
    ASSERT_TRUE(TopicShows("first body"));
    QTest::keyClick(&run->window, Qt::Key_F1);
    auto* help = Find<QWidget>("HelpWindow");
    ASSERT_NE(help, nullptr);
    EXPECT_TRUE(help->isVisible());
    EXPECT_EQ(Main().log.LastLine(), "ReadUserGuide: 53 File not found");
}

}  // namespace
}  // namespace quorrel::test
