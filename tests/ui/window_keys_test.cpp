// Keys that nobody takes, and what follows the open topic.
#include <QLabel>
#include <QMenu>
#include <QPlainTextEdit>
#include <QStatusBar>
#include <QTest>
#include <QWebEngineView>

#include "platform/text.hpp"
#include "project/open_project.hpp"
#include "ui/engine_page.hpp"
#include "ui/qt_text.hpp"
#include "ui/window_fixture.hpp"

namespace quorrel::test {
namespace {

class Keys : public WindowFixture {
  protected:
    void GoTo(int tab) { Main().window.TabStrip2.SelectedIndex = tab; }
    QString Said() { return run->window.statusBar()->currentMessage(); }
    QString InBrowser(const QString& script) {
        return ValueOf(*run->preview.View()->page(), script, QWebEngineScript::MainWorld)
            .toString();
    }
    testing::AssertionResult BrowserShows(const QString& text) {
        const QString script = "document.body ? document.body.innerText : ''";
        if (WaitFor([&] { return InBrowser(script).contains(text); })) {
            return testing::AssertionSuccess();
        }
        return testing::AssertionFailure() << FromQt(InBrowser(script));
    }
};

TEST_F(Keys, ALetterWithAltIsNotTyped) {
    StartAndOpen();
    ASSERT_TRUE(TopicShows("first body"));
    run->window.activateWindow();
    const QString before = TopicText();
    QTest::keyClick(run->surface.View()->focusProxy(), Qt::Key_J, Qt::AltModifier);
    GoTo(right_tab::kSource);
    auto* source = Find<QPlainTextEdit>("Source1");
    ASSERT_TRUE(WaitFor([&] { return source->toPlainText().contains("first body"); }));
    const QString text = source->toPlainText();
    QTest::keyClick(source, Qt::Key_J, Qt::AltModifier);
    EXPECT_EQ(source->toPlainText(), text);
    GoTo(right_tab::kNormal);
    EXPECT_TRUE(TopicShows("first body"));
    EXPECT_EQ(TopicText(), before);
}

TEST_F(Keys, ACommandThatATabLacksSaysSo) {
    StartAndOpen();
    ASSERT_TRUE(TopicShows("first body"));
    run->window.activateWindow();
    struct Case {
        int tab;
        Qt::Key key;
        Qt::KeyboardModifier modifier;
        const char* said;
    };
    const Case cases[] = {
        {right_tab::kProperties, Qt::Key_B, Qt::ControlModifier,
         "Bold is not available on the tab Topic Properties."},
        {right_tab::kProperties, Qt::Key_F, Qt::ControlModifier,
         "Find is not available on the tab Topic Properties."},
        {right_tab::kOrganizeTOC, Qt::Key_S, Qt::ControlModifier,
         "Save Project is not available on the tab Organize TOC."},
        {right_tab::kOrganizeTOC, Qt::Key_F, Qt::AltModifier,
         "File is not available on the tab Organize TOC."},
        {right_tab::kReport, Qt::Key_P, Qt::ControlModifier,
         "Print is not available on the tab Topic Report."},
        {right_tab::kNormal, Qt::Key_H, Qt::ControlModifier, "Replace is not available yet."},
        {right_tab::kNormal, Qt::Key_Z, Qt::ControlModifier,
         "Undo is not available at the moment."}};
    for (const Case& tried : cases) {
        GoTo(tried.tab);
        run->window.statusBar()->clearMessage();
        QTest::keyClick(&run->window, tried.key, tried.modifier);
        EXPECT_EQ(FromQt(Said()), tried.said);
    }
}

TEST_F(Keys, TheContentsFollowTheOpenTopic) {
    StartAndOpen();
    ASSERT_TRUE(TopicShows("first body"));
    auto* contents = Find<QTreeView>("Tree1");
    auto* topics = Find<QTreeView>("ListTopics");
    Main().window.TabStrip1.SelectedIndex = left_tab::kTopics;
    topics->setFocus();
    DoubleClickItem(topics, topics->model()->index(0, 0));
    ASSERT_TRUE(TopicShows("second body"));
    EXPECT_EQ(contents->currentIndex().data().toString(), "Inside");
    EXPECT_FALSE(contents->hasFocus());
    EXPECT_TRUE(TopicText().contains("second body")) << "selected, and not opened again";
}

TEST_F(Keys, TheReportLeadsToTheTopics) {
    StartAndOpen();
    ASSERT_TRUE(TopicShows("first body"));
    EXPECT_FALSE(run->preview.belongs("Z:\\etc\\passwd"));
    GoTo(right_tab::kReport);
    ASSERT_TRUE(BrowserShows("Topic Report: Demo"));
    const std::string written = folder.Read("demo & more/report/report.htm");
    EXPECT_TRUE(Contains(written, "<a href=\"html\\second.htm\" target=_blank>")) << written;
    ASSERT_EQ(InBrowser("getComputedStyle(document.body).fontFamily != ''"), "true");
    InBrowser("document.links[0].scrollIntoView(); 0");
    const auto place = [this](const QString& side) {
        return InBrowser("Math.round(document.links[0].getBoundingClientRect()." + side + " + 4)")
            .toInt();
    };
    QTest::mouseClick(run->preview.View()->focusProxy(), Qt::LeftButton, {},
                      QPoint(place("left"), place("top")));
    EXPECT_TRUE(BrowserShows("second body"));
    EXPECT_EQ(run->preview.Widget()->findChildren<QWebEngineView*>("PreviewWindow").size(), 0);
    run->preview.GoBack();
    EXPECT_TRUE(BrowserShows("Topic Report: Demo"));
    EXPECT_EQ(folder.Read("demo & more/report/report.htm"), written);

    QTest::mouseClick(run->preview.View()->focusProxy(), Qt::RightButton, {}, QPoint(5, 5));
    QMenu* menu = nullptr;
    ASSERT_TRUE(WaitFor([&] {
        menu = run->preview.View()->findChild<QMenu*>("PreviewMenu");
        return menu != nullptr;
    }));
    QStringList texts;
    for (const QAction* action : menu->actions()) texts << action->text();
    EXPECT_TRUE(texts.contains("&Print..."));
    menu->close();
}

TEST_F(Keys, TheStatusBarForgetsTheProjectBefore) {
    StartAndOpen();
    ASSERT_TRUE(TopicShows("first body"));
    EXPECT_EQ(Find<QLabel>("StatusBar1.1")->text(), "Zebra");
    folder.Write("empty/empty.hhp", "[OPTIONS]\r\nTitle=Empty\r\n\r\n[FILES]\r\n");
    Main().project.recent_proj = folder.Windows("empty/empty.hhp");
    OpenProject_Click(Main());
    EXPECT_EQ(Find<QLabel>("StatusBar1.1")->text(), "");
    EXPECT_EQ(Find<QLabel>("StatusBar1.2")->text(), "");
}

}  // namespace
}  // namespace quorrel::test
