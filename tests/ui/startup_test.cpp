#include <QLabel>
#include <QPushButton>
#include <QTest>
#include <QToolButton>

#include "ui/window_fixture.hpp"

namespace quorrel::test {
namespace {

using StartUp = WindowFixture;

TEST_F(StartUp, ListsTheRecentProjectsAndOpensOneByEnter) {
    WriteProject();
    Start([this](QWidget& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Open/Create Help Project");
        auto* list = dialog.findChild<QTreeView*>("ListProjects");
        EXPECT_TRUE(list->hasFocus());
        EXPECT_EQ(Column(list, 0), QStringList{"Demo"});
        EXPECT_EQ(Column(list, 1).value(0).toStdString(), folder.Native("demo & more/demo.hhp"));
        EXPECT_TRUE(dialog.findChild<QToolButton*>("Command1")->isEnabled());
        EXPECT_TRUE(run->window.isVisible());
        QTest::keyClick(list, Qt::Key_Return);
    });
    EXPECT_EQ(run->window.windowTitle(), "Quorrel HTML Help Edition - Demo");
    EXPECT_TRUE(TopicShows("first body"));
    EXPECT_EQ(Find<QTreeView>("Tree1")->currentIndex().data(), "Start");
    EXPECT_EQ(Column(Find<QTreeView>("ListTopics")), (QStringList{"Apple", "Mango", "Zebra"}));
    EXPECT_EQ(Column(Find<QTreeView>("ListKeywords")), (QStringList{"both", "one", "other"}));
    EXPECT_EQ(Find<QLabel>("StatusBar1.1")->text(), "Zebra");
    EXPECT_EQ(Find<QLabel>("StatusBar1.2")->text().toStdString(),
              folder.Native("demo & more/html/first.htm"));
}

TEST_F(StartUp, AProjectThatIsGoneIsToldAndCancelLeavesAHint) {
    WriteProject();
    const std::string path = folder.Native("demo & more/demo.hhp");
    Start([&](QWidget& dialog) {
        std::filesystem::remove(path);
        dialogs.Expect("Message", [&](QWidget& message) {
            EXPECT_EQ(message.property("text").toString().toStdString(),
                      "Cannot find file " + path + ".");
            QTest::keyClick(&message, Qt::Key_Escape);
        });
        QTest::mouseClick(dialog.findChild<QPushButton*>("Command2"), Qt::LeftButton);
        EXPECT_TRUE(dialog.isVisible());
        QTest::mouseClick(dialog.findChild<QPushButton*>("Command3"), Qt::LeftButton);
    });
    EXPECT_EQ(Main().project.proj, "");
    EXPECT_TRUE(run->window.isVisible());
    EXPECT_EQ(run->window.windowTitle(), "Quorrel HTML Help Edition");
    auto* hint = Find<QLabel>("TopicHint");
    EXPECT_TRUE(hint->isVisible());
    EXPECT_EQ(hint->text(), "Open a project with File > Open Project.");
    EXPECT_EQ(run->surface.View(), nullptr) << "the engine is started by the first topic only";
}

}  // namespace
}  // namespace quorrel::test
