// The whole road in the window: open, edit on the surface and in the source, save, open again.
#include <QAbstractButton>
#include <QAction>
#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTabBar>
#include <QTest>
#include <QTextBlock>
#include <QWebEngineView>

#include "ui/source_editor.hpp"
#include "ui/window_fixture.hpp"

namespace quorrel::test {
namespace {

class EditRoad : public WindowFixture {
  protected:
    void ClickContents(const QString& text) {
        auto* tree = Find<QTreeView>("Tree1");
        tree->expandAll();
        const auto found = tree->model()->match(tree->model()->index(0, 0), Qt::DisplayRole, text,
                                                1, Qt::MatchExactly | Qt::MatchRecursive);
        ASSERT_FALSE(found.isEmpty()) << text.toStdString();
        ClickItem(tree, found.constFirst());
    }
    void ClickTab(int tab) {
        auto* bar = Find<QTabBar>("TabStrip2");
        QTest::mouseClick(bar, Qt::LeftButton, {}, bar->tabRect(tab - 1).center());
        ASSERT_EQ(bar->currentIndex(), tab - 1);
    }
    void TypeOnSurface(const QString& text) {
        run->window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&run->window));
        ASSERT_TRUE(QTest::qWaitFor([&] { return !run->surface.Busy(); }, 20000));
        run->surface.SetFocus();
        QWidget* input = run->surface.View()->focusProxy();
        ASSERT_TRUE(QTest::qWaitFor([&] { return input->hasFocus(); }, 5000));
        QTest::keyClick(input, Qt::Key_Home, Qt::ControlModifier);
        QTest::keyClicks(input, text);
        ASSERT_TRUE(TopicShows(text));
    }
};

TEST_F(EditRoad, ATopicTooLargeForTheSurfaceIsEditedAsSource) {
    WriteProject();
    std::string text = "<html><head><title>Apple</title></head>\r\n<body><p>\r\n";
    for (int i = 0; i < 30'000; ++i) text += "<b>w</b>\r\n";
    text += "</p></body></html>\r\n";
    const std::string file = "demo & more/html/second.htm";
    folder.Write(file, text);
    OpenFirst();
    ASSERT_TRUE(TopicShows("first body"));
    ClickContents("Inside");
    auto* hint = Find<QLabel>("TopicHint");
    EXPECT_TRUE(hint->isVisible());
    EXPECT_TRUE(hint->text().contains("too large"));
    EXPECT_FALSE(run->surface.Busy());
    ClickTab(right_tab::kSource);
    auto* editor = Find<SourceEditor>("Source1");
    EXPECT_EQ(run->source.Text(), text);
    QTest::keyClick(editor, Qt::Key_End, Qt::ControlModifier);
    QTest::keyClicks(editor, "<!-- added -->");
    ClickTab(right_tab::kNormal);
    EXPECT_TRUE(hint->isVisible());
    Find<QAction>("FileSave")->trigger();
    EXPECT_EQ(folder.Read(file), text + "<!-- added -->");
    ClickContents("Start");
    ASSERT_TRUE(TopicShows("first body"));
    EXPECT_FALSE(hint->isVisible());
    ClickContents("Inside");
    EXPECT_TRUE(hint->isVisible());
    ClickTab(right_tab::kSource);
    EXPECT_EQ(run->source.Text(), text + "<!-- added -->");
}

TEST_F(EditRoad, FromAClickToTheSavedFilesAndBack) {
    StartAndOpen();
    ASSERT_TRUE(TopicShows("first body"));
    const std::string first = folder.Read("demo & more/html/first.htm");
    ClickContents("Inside");
    ASSERT_TRUE(TopicShows("second body"));
    TypeOnSurface("typed ");
    ClickTab(right_tab::kSource);
    auto* editor = Find<SourceEditor>("Source1");
    EXPECT_TRUE(editor->isVisible());
    EXPECT_TRUE(editor->toPlainText().contains("<body>typed second body</body>"));
    QTest::keyClick(editor, Qt::Key_End, Qt::ControlModifier);
    QTest::keyClicks(editor, "<!-- from the source -->");
    ClickTab(right_tab::kNormal);
    ASSERT_TRUE(TopicShows("typed second body"));
    ASSERT_TRUE(QTest::qWaitFor([&] { return !Main().editor.DoRestoreSelection; }, 20000));
    QTest::keyClicks(run->surface.View()->focusProxy(), "it ");
    ASSERT_TRUE(TopicShows("typed it second body")) << "the caret is where it was";
    ClickContents("End");
    ASSERT_TRUE(TopicShows("third body"));
    const std::string copy = "demo & more/html/second.htm.tmp.htm";
    EXPECT_TRUE(folder.Exists(copy));
    Find<QAction>("FileSave")->trigger();
    const std::string expected =
        "<html><head><title>Apple</title></head>\r\n<body>typed it second body</body></html>\r\n"
        "<!-- from the source -->";
    EXPECT_EQ(folder.Read("demo & more/html/second.htm"), expected);
    EXPECT_EQ(folder.Read("demo & more/html/first.htm"), first);
    EXPECT_FALSE(folder.Exists(copy));
    EXPECT_TRUE(run->window.close()) << "nothing is left to ask about";

    OpenFirst();
    ClickContents("Inside");
    EXPECT_TRUE(TopicShows("typed it second body"));
}

TEST_F(EditRoad, ClosingAsksAndAPreviewShowsTheEditedText) {
    StartAndOpen();
    ASSERT_TRUE(TopicShows("first body"));
    TypeOnSurface("edited ");
    dialogs.Expect("Message", [](QWidget& box) { QTest::keyClick(&box, Qt::Key_Escape); });
    EXPECT_FALSE(run->window.close());
    ClickTab(right_tab::kPreview);
    QString shown;
    EXPECT_TRUE(QTest::qWaitFor(
        [&] {
            run->preview.View()->page()->toPlainText([&](const QString& text) { shown = text; });
            return shown.contains("edited first body");
        },
        20000));
    dialogs.Expect("Message", [](QWidget& box) { QTest::keyClick(&box, Qt::Key_N); });
    EXPECT_TRUE(run->window.close());
    EXPECT_FALSE(folder.Exists("demo & more/html/first.htm.tmp.htm"));
    EXPECT_EQ(folder.Read("demo & more/html/first.htm").find("edited"), std::string::npos);
}

class SourceRoad : public EditRoad {
  protected:
    void SetUp() override {
        WriteProject();
        folder.Write("demo & more/html/first.htm",
                     "<title>Zebra</title>\r\n<OBJECT type=x>\r\n<PARAM name=a></OBJECT>\r\n"
                     "<p>last line</p>\r\n");
        OpenFirst();
        ASSERT_TRUE(TopicShows("last line"));
        run->window.activateWindow();
        ASSERT_TRUE(QTest::qWaitForWindowActive(&run->window));
        ClickTab(right_tab::kSource);
        editor = Find<SourceEditor>("Source1");
        surface_complete = run->surface.DocumentComplete;
        run->surface.DocumentComplete = [this] {
            surface_complete();
            ++completed;
        };
    }
    /// As the author does, to whatever has the keyboard.
    static void Type(const QString& text) {
        ASSERT_NE(QApplication::focusWidget(), nullptr);
        QTest::keyClicks(QApplication::focusWidget(), text);
    }

    SourceEditor* editor = nullptr;
    std::function<void()> surface_complete;
    int completed = 0;
};

TEST_F(SourceRoad, TypingGoesOnThroughASave) {
    ASSERT_TRUE(QTest::qWaitFor([&] { return editor->hasFocus(); }, 5000));
    editor->find("last");
    QString typed;
    for (const char* const text : {"one ", "<object></object> ", "two "}) {
        completed = 0;
        Type(text);
        Find<QAction>("FileSave")->trigger();
        Type("more ");
        ASSERT_TRUE(QTest::qWaitFor([&] { return completed > 0; }, 20000));
        Type("then ");
    }
    const QString line = editor->textCursor().block().text();
    EXPECT_EQ(line.toStdString(),
              "<p>one more then <object></object> more then two more then  line</p>");
    EXPECT_EQ(editor->textCursor().positionInBlock(), line.indexOf(" line</p>"));
    Find<QAction>("FileSave")->trigger();
    ASSERT_TRUE(QTest::qWaitFor([&] { return completed > 1; }, 20000));
    const QString masked = editor->textCursor().block().text();
    EXPECT_TRUE(masked.contains("<!OBJECT><!/OBJECT> more")) << masked.toStdString();
    EXPECT_EQ(editor->textCursor().positionInBlock(), masked.indexOf(" line</p>"));
    EXPECT_EQ(folder.Read("demo & more/html/first.htm"),
              "<title>Zebra</title>\r\n<OBJECT type=x>\r\n<PARAM name=a></OBJECT>\r\n<p>one more "
              "then <OBJECT></OBJECT> more then two more then  line</p>\r\n");
}

TEST_F(SourceRoad, AnotherProjectIsEditedWhereItIsSeen) {
    folder.Write("other/other.hhp", "[OPTIONS]\r\nTitle=Other\r\n\r\n[FILES]\r\nc.htm\r\n\r\n");
    folder.Write("other/c.htm", "<title>See</title><body>other body</body>");
    folder.Write("other/other.hhc",
                 "<UL>\r\n<LI><OBJECT type=\"text/sitemap\">\r\n<param name=\"Name\" value=\"C\">"
                 "\r\n<param name=\"Local\" value=\"c.htm\">\r\n</OBJECT>\r\n</UL>\r\n");
    Main().project.recent_proj = folder.Windows("other/other.hhp");
    completed = 0;
    Find<QAction>("OpenProject")->trigger();
    ASSERT_TRUE(QTest::qWaitFor([&] { return completed > 0; }, 20000));
    EXPECT_TRUE(editor->isVisible());
    Type("<!-- typed -->");
    EXPECT_EQ(editor->toPlainText().toStdString(),
              "<!-- typed --><title>See</title><body>other body</body>");
    ClickTab(right_tab::kNormal);
    ASSERT_TRUE(TopicShows("other body"));
    EXPECT_EQ(run->surface.DocumentHTML(),
              "<!-- typed --><title>See</title><body>other body</body>");
}

TEST_F(SourceRoad, ANewProjectIsEditedWhereItIsSeen) {
    completed = 0;
    dialogs.Expect("FormCreateProject", [&](QWidget& dialog) {
        dialog.findChild<QLineEdit*>("EditProject")
            ->setText(QString::fromStdString(folder.Native("new/made.hhp")));
        QTest::mouseClick(dialog.findChild<QAbstractButton*>("OKButton"), Qt::LeftButton);
    });
    Find<QAction>("FileNewProject")->trigger();
    ASSERT_TRUE(QTest::qWaitFor([&] { return completed > 0; }, 20000));
    ASSERT_TRUE(QTest::qWaitForWindowActive(&run->window));
    Type("<!-- typed -->");
    EXPECT_TRUE(editor->toPlainText().startsWith("<!-- typed -->"));
}

}  // namespace
}  // namespace quorrel::test
