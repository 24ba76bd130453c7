#include <QAction>
#include <QCheckBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QSplitter>
#include <QTest>

#include "ui/window_fixture.hpp"

namespace quorrel::test {
namespace {

using Window = WindowFixture;

TEST_F(Window, RecentEntriesKeepTheAmpersandsOfTheirPaths) {
    StartAndOpen();
    auto* entry = Find<QAction>("recent0");
    EXPECT_TRUE(entry->isVisible());
    EXPECT_TRUE(entry->text().startsWith("&0  ")) << entry->text().toStdString();
    EXPECT_TRUE(entry->text().endsWith("demo && more/demo.hhp")) << entry->text().toStdString();
    EXPECT_FALSE(Find<QAction>("recent1")->isVisible());
}

TEST_F(Window, ARecentEntryOpensItsProject) {
    WriteProject();
    Start([](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    Find<QAction>("recent0")->trigger();
    EXPECT_TRUE(TopicShows("first body"));
    EXPECT_EQ(run->window.windowTitle(), "Quorrel HTML Help Edition - Demo");
}

TEST_F(Window, ReopeningAProjectFillsTheListsAnew) {
    StartAndOpen();
    folder.Write("demo & more/toc.hhc", "<UL>\r\n</UL>\r\n");
    Find<QAction>("recent0")->trigger();
    EXPECT_TRUE(QTest::qWaitFor([&] { return Column(Find<QTreeView>("Tree1")).isEmpty(); }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return Column(Find<QTreeView>("ListTopics")).size() == 3; }));
    EXPECT_TRUE(QTest::qWaitFor([&] { return TopicText().trimmed().isEmpty(); }))
        << "nothing of the topic before is left";
}

TEST_F(Window, ClosingWritesTheSettingsOnce) {
    StartAndOpen();
    int closed = 0;
    QObject::connect(&run->window, &MainWindow::Closed, &run->window, [&] { ++closed; });
    EXPECT_TRUE(run->window.close());
    run->window.close();
    EXPECT_EQ(closed, 1);
    const std::string ini = folder.Read("config/quorrel/qrrl_hj.ini");
    EXPECT_NE(ini.find("preserveHTML=1\r\n"), std::string::npos) << ini;
    EXPECT_NE(ini.find("0=" + folder.Windows("demo & more/demo.hhp") + "|Demo\r\n"),
              std::string::npos)
        << ini;
}

TEST_F(Window, ItsPlaceIsRemembered) {
    StartAndOpen();
    run->window.setGeometry(40, 50, 700, 430);
    Find<QSplitter>("splitter")->setSizes({220, 470});
    Find<QTreeView>("ListTopics")->header()->resizeSection(0, 171);
    const int left = Find<QSplitter>("splitter")->sizes().constFirst();
    run->window.close();
    Start([](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    EXPECT_EQ(run->window.size(), QSize(700, 430));
    EXPECT_EQ(Find<QSplitter>("splitter")->sizes().constFirst(), left);
    EXPECT_EQ(Find<QTreeView>("ListTopics")->header()->sectionSize(0), 171);
}

TEST_F(Window, SettingsWithoutAPathAreRefusedAndTheDialogStays) {
    StartAndOpen();
    dialogs.Expect("FormSettings", [&](QWidget& dialog) {
        dialog.findChild<QCheckBox*>("CheckExtEditor")->click();
        dialogs.Expect("Message", [&](QWidget& message) {
            EXPECT_EQ(message.property("text").toString(),
                      "You must specify a path to an HTML editor.");
            QTest::keyClick(&message, Qt::Key_Return);
        });
        auto* ok = dialog.findChild<QPushButton*>("OKButton");
        ok->click();
        EXPECT_TRUE(dialog.isVisible());
        dialog.findChild<QLineEdit*>("EditEditorPath")->setText("/usr/bin/edit");
        ok->click();
        EXPECT_FALSE(dialog.isVisible());
    });
    Find<QAction>("mnuqrsettings")->trigger();
    EXPECT_TRUE(Main().settings.use_ext_editor);
    EXPECT_NE(folder.Read("config/quorrel/qrrl_hj.ini").find("exted=/usr/bin/edit"),
              std::string::npos);
}

TEST_F(Window, ADarkPaletteBringsDarkIcons) {
    WriteProject();
    Start([](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    EXPECT_EQ(QIcon::themeName(), "breeze");
    QPalette dark(Qt::white, QColor(40, 44, 48));
    QApplication::setPalette(dark);
    EXPECT_TRUE(QTest::qWaitFor([] { return QIcon::themeName() == "breeze-dark"; }));
    EXPECT_FALSE(Find<QAction>("OpenProject")->icon().isNull());
    QApplication::setPalette(QPalette());
}

}  // namespace
}  // namespace quorrel::test
