#include <QAction>
#include <QCheckBox>
#include <QHeaderView>
#include <QLineEdit>
#include <QMenu>
#include <QPushButton>
#include <QTabBar>
#include <QTest>

#include "ui/window_fixture.hpp"

namespace quorrel::test {
namespace {

class Window : public WindowFixture {
  protected:
    /// Drags the split by so many pixels, and says where the bar stood before the mouse let go.
    int DragSplit(int pixels) {
        auto* grip = Find<QWidget>("imgSplitter");
        const QPoint start = grip->rect().center();
        QTest::mousePress(grip, Qt::LeftButton, {}, start);
        QTest::mouseMove(grip, start + QPoint(pixels, 0));
        const int bar = Find<QWidget>("picSplitter")->x();
        EXPECT_TRUE(Find<QWidget>("picSplitter")->isVisible());
        QTest::mouseRelease(grip, Qt::LeftButton, {}, start + QPoint(pixels, 0));
        EXPECT_FALSE(Find<QWidget>("picSplitter")->isVisible());
        return bar;
    }

    /// The panes of a side that are shown, and that all lie within its strip's column.
    QStringList ShownPanes() {
        QStringList shown;
        for (const char* name : {"Tree1", "ListTopics", "ListKeywords", "DHTMLEdit1", "Source1",
                                 "WebBrowser1", "TreeDoc", "PictureProperties", "PictureTOCEdit",
                                 "PictureDocEdit", "LabelExtEditor"}) {
            const auto* pane = run->window.findChild<QWidget*>(name);
            if (pane != nullptr && pane->isVisible()) shown << name;
        }
        return shown;
    }
};

TEST_F(Window, ThePanesFollowTheSplitTheWindowAndTheTab) {
    StartAndOpen();
    run->window.resize(900, 600);
    ASSERT_TRUE(QTest::qWaitFor([&] { return run->window.size() == QSize(900, 600); }));
    auto* area = Find<QWidget>("PictureBackground");
    auto* tree = Find<QWidget>("Tree1");
    auto* surface = Find<QWidget>("TopicArea");
    const int top = 23;  // 350 twips
    EXPECT_EQ(tree->geometry(), QRect(QPoint(4, top), QPoint(296, area->height() - 1)));
    EXPECT_EQ(surface->y(), top);
    EXPECT_EQ(surface->geometry().bottom(), area->height() - 1);
    EXPECT_EQ(surface->geometry().right(), 900 - 7 - 3 - 1);

    // The bar follows the mouse to 500 twips, the split stays at 1500.
    EXPECT_EQ(DragSplit(-280), 33 - 1);
    EXPECT_EQ(Find<QWidget>("TabStrip1")->width(), 100);
    EXPECT_EQ(tree->geometry().right() + 1, 97);
    EXPECT_EQ(surface->x(), 106);
    DragSplit(200);
    EXPECT_NEAR(Find<QWidget>("TabStrip1")->width(), 300, 1);

    auto* tabs = Find<QTabBar>("TabStrip2");
    tabs->setCurrentIndex(right_tab::kOrganizeTOC - 1);
    EXPECT_EQ(tree->geometry(), QRect(surface->x(), top, surface->width(), area->height() - 223));
    EXPECT_FALSE(Find<QTabBar>("TabStrip1")->isEnabled());
    EXPECT_EQ(Find<QTabBar>("TabStrip1")->tabText(2), "(disabled)");
    const int before = tree->x();
    DragSplit(50);
    EXPECT_NEAR(tree->x(), before + 50, 1) << "on this tab the tree stays on the right side";
    const QRect upper = tree->geometry();
    tabs->setCurrentIndex(right_tab::kDocumentWizard - 1);
    EXPECT_EQ(Find<QWidget>("TreeDoc")->geometry(), upper);
    tabs->setCurrentIndex(right_tab::kNormal - 1);
    EXPECT_EQ(tree->x(), 4);
    EXPECT_EQ(Find<QTabBar>("TabStrip1")->tabText(2), "Index");
}

TEST_F(Window, EachTabShowsItsPanes) {
    StartAndOpen();
    const QStringList expected[] = {{"Tree1", "DHTMLEdit1"},
                                    {"Tree1", "PictureProperties"},
                                    {"Tree1", "Source1"},
                                    {"Tree1", "WebBrowser1"},
                                    {"Tree1", "ListTopics", "PictureTOCEdit"},
                                    {"ListTopics", "WebBrowser1"},
                                    {"ListTopics", "TreeDoc", "PictureDocEdit"}};
    for (int tab = right_tab::kNormal; tab <= right_tab::kDocumentWizard; ++tab) {
        QTest::keyClick(&run->window, static_cast<Qt::Key>(Qt::Key_0 + tab), Qt::AltModifier);
        EXPECT_EQ(Main().window.TabStrip2.SelectedIndex(), tab);
        EXPECT_EQ(ShownPanes(), expected[tab - 1]) << tab;
    }
}

TEST_F(Window, AListKeepsTheKeysWhileItsTopicsOpenBehindAnotherView) {
    StartAndOpen();
    ASSERT_TRUE(TopicShows("first body"));
    Main().window.TabStrip2.SelectedIndex = right_tab::kProperties;
    auto* tree = Find<QTreeView>("Tree1");
    tree->setFocus();
    QTest::keyClick(tree, Qt::Key_End);
    QTest::keyClick(tree, Qt::Key_Return);
    EXPECT_TRUE(TopicShows("third body"));
    QTest::qWait(200);  // the surface is done with its document
    EXPECT_TRUE(tree->hasFocus());
}

TEST_F(Window, TheExpandedPaneGivesTheRightSideTheRoomAndTakesItBack) {
    StartAndOpen();
    const QRect before = Find<QWidget>("TabStrip2")->geometry();
    Find<QAction>("expandpane")->trigger();
    EXPECT_EQ(Find<QWidget>("TabStrip1")->width(), 100);
    Find<QAction>("expandpane")->trigger();
    EXPECT_NEAR(Find<QWidget>("TabStrip2")->x(), before.x(), 3);
}

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
    DragSplit(-80);
    Find<QTreeView>("ListTopics")->header()->resizeSection(0, 171);
    const int left = Find<QWidget>("TabStrip1")->width();
    EXPECT_NEAR(left, 220, 3);
    run->window.close();
    Start([](QWidget& dialog) { QTest::keyClick(&dialog, Qt::Key_Escape); });
    EXPECT_EQ(run->window.size(), QSize(700, 430));
    EXPECT_NEAR(Find<QWidget>("TabStrip1")->width(), left, 1);
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
