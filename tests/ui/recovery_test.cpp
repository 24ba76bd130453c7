// What is typed is there again after a run that ended without a word.
#include <QPushButton>
#include <QTest>
#include <QTreeWidget>
#include <QWebEngineView>

#include "project/private_files.hpp"
#include "project/unsaved_work.hpp"
#include "ui/window_fixture.hpp"

namespace quorrel::test {
namespace {

class RecoveryInTheWindow : public WindowFixture {};

TEST_F(RecoveryInTheWindow, OffersWhatWasTypedAMomentBefore) {
    StartAndOpen();
    ASSERT_TRUE(TopicShows("first body"));
    run->surface.SetFocus();
    QTest::keyClicks(run->surface.View()->focusProxy(), "Now ");
    const std::string kept = PrivateFile(Main(), Main().project.proj, kTopicFile);
    ASSERT_TRUE(QTest::qWaitFor([&] { return files.FileExists(kept); }));
    run.reset();  // nothing of the end of a run takes place

    Start([&](QWidget& startup) {
        dialogs.Expect("FormRecover", [](QWidget& dialog) {
            auto* list = dialog.findChild<QTreeWidget*>("ListWork");
            ASSERT_EQ(list->topLevelItemCount(), 1);
            EXPECT_TRUE(list->topLevelItem(0)->text(0).endsWith("first.htm"));
            EXPECT_EQ(list->topLevelItem(0)->checkState(0), Qt::Checked);
            dialog.findChild<QPushButton*>("OKButton")->click();
        });
        QTest::keyClick(startup.findChild<QTreeView*>("ListProjects"), Qt::Key_Return);
    });
    EXPECT_TRUE(TopicShows("Now first body"));
    EXPECT_TRUE(Main().project.project_dirty);
}

}  // namespace
}  // namespace quorrel::test
