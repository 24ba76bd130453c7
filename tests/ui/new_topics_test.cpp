// New projects and topics by clicks and keys, and what they leave on the disk.
#include <QAction>
#include <QClipboard>
#include <QFileInfo>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPushButton>
#include <QTabWidget>
#include <QTest>
#include <QTreeWidget>

#include "project/save_project.hpp"
#include "ui/authoring_fixture.hpp"
#include "ui/drag.hpp"
#include "ui/topics_pane.hpp"

namespace quorrel::test {
namespace {

class NewTopicsByHand : public AuthoringFixture {
  protected:
    NewTopicsByHand() { Install("htmlhelp"); }

    /// Every label that leads somewhere has a key of its own, and none is cut off.
    static void CheckLabels(const QWidget& dialog) {
        QStringList keys;
        for (const QLabel* label : dialog.findChildren<QLabel*>()) {
            if (!label->isVisible()) continue;
            EXPECT_GE(label->width(), label->wordWrap() ? 0 : label->sizeHint().width())
                << label->text().toStdString();
            if (label->buddy() == nullptr) continue;
            const qsizetype mark = label->text().indexOf('&');
            EXPECT_GE(mark, 0) << label->text().toStdString();
            keys << label->text().mid(mark + 1, 1).toUpper();
        }
        for (const auto* button : dialog.findChildren<QPushButton*>()) {
            const qsizetype mark = button->text().indexOf('&');
            if (button->isVisible() && mark >= 0) keys << button->text().mid(mark + 1, 1).toUpper();
        }
        EXPECT_EQ(keys.removeDuplicates(), 0) << keys.join(' ').toStdString();
    }
};

TEST_F(NewTopicsByHand, AProjectGrowsInAnEmptyFolder) {
    const std::string proj = folder.Native("book/guide.hhp");
    Start([&](QWidget& startup) {
        EXPECT_EQ(FocusOf(startup), "Command1");
        dialogs.Expect("FormCreateProject", [&](QWidget& dialog) {
            CheckLabels(dialog);
            EXPECT_FALSE(dialog.findChild<QPushButton*>("OKButton")->isEnabled());
            Type(dialog, "EditProject", QString::fromStdString(proj));
            EXPECT_EQ(dialog.findChild<QLineEdit*>("EditProject")->text().toStdString(), proj);
            Type(dialog, "EditTitle", "The Guide");
            QTest::keyClick(&dialog, Qt::Key_Return);
        });
        Click(startup, "Command1");
    });
    EXPECT_EQ(run->window.windowTitle(), "Quorrel HTML Help Edition - The Guide");
    EXPECT_TRUE(TopicShows("FirstTopic"));

    // Cancelled: the number is used up, nothing else happens.
    Run("FileNew", "FormNewTopic", [](QWidget& dialog) {
        CheckLabels(dialog);
        EXPECT_EQ(FocusOf(dialog), "EditTitle");
        EXPECT_FALSE(dialog.findChild<QPushButton*>("OkCmd")->isEnabled());
        QTest::keyClick(&dialog, Qt::Key_Escape);
    });
    Run("FileNew", "FormNewTopic", [this](QWidget& dialog) {
        EXPECT_EQ(dialog.findChild<QLineEdit*>("EditInteger")->text(), "1002");
        Type(dialog, "EditTitle", "Rye & Oats");
        dialogs.Expect("FormNewFolder", [](QWidget& new_folder) {
            CheckLabels(new_folder);
            Type(new_folder, "Text1", "bread");
            QTest::keyClick(&new_folder, Qt::Key_Return);
        });
        Click(dialog, "Command2");
        EXPECT_EQ(dialog.findChild<QTreeWidget*>("Dir1")->currentItem()->text(0), "bread");
        EXPECT_EQ(dialog.findChild<QLineEdit*>("EditFile")->text(), "bread/Rye___Oats.htm");
        QTest::keyClick(dialog.findChild<QListWidget*>("FileTemplate"), Qt::Key_Down);
        EXPECT_EQ(dialog.findChild<QLineEdit*>("EditKeyword")->text(), "Rye & Oats");
        Click(dialog, "Command1");
        Type(dialog, "EditKeyword", "Bread");
        Type(dialog, "EditSubKey", "rye");
        QTest::keyClick(dialog.focusWidget(), Qt::Key_Return);
        auto* keys = dialog.findChild<QListWidget*>("ListKeys");
        ASSERT_EQ(keys->count(), 2);
        EXPECT_EQ(keys->currentItem()->text(), "Bread:rye");
        keys->setCurrentRow(1);
        keys->setFocus();
        QTest::keyClick(keys, Qt::Key_Delete);
        EXPECT_EQ(keys->count(), 1);
        QTest::keyClick(dialog.findChild<QLineEdit*>("EditSubKey"), Qt::Key_Return);
    });
    EXPECT_TRUE(TopicShows("Rye & Oats"));
    EXPECT_EQ(folder.Read("book/bread/Rye___Oats.htm"),
              "<title>Rye & Oats</title><body><ol><li>Rye & Oats</ol>");

    // A second topic in another folder, of another template, chosen with the mouse; its file is
    // taken at first.
    Run("Topic", "FormNewTopic", [this](QWidget& dialog) {
        auto* tree = dialog.findChild<QTreeWidget*>("Dir1");
        EXPECT_EQ(tree->currentItem()->text(0), "bread") << "the folder of the topic before";
        Type(dialog, "EditTitle", "Rye & Oats");
        dialogs.Expect("Message",
                       [](QWidget& message) { QTest::keyClick(&message, Qt::Key_Return); });
        Click(dialog, "OkCmd");
        EXPECT_TRUE(dialog.isVisible());
        EXPECT_EQ(FocusOf(dialog), "EditFile");
        ClickItem(tree, tree->model()->index(0, 0));
        EXPECT_EQ(dialog.findChild<QLineEdit*>("EditFile")->text(), "Rye___Oats.htm");
        Type(dialog, "EditAlias", "again");
        Click(dialog, "OkCmd");
    });
    EXPECT_TRUE(folder.Exists("book/Rye___Oats.htm"));
    auto* contents = Find<QTreeView>("Tree1");
    EXPECT_TRUE(QTest::qWaitFor([&] { return contents->model()->rowCount() == 3; }));
    EXPECT_EQ(Column(contents), (QStringList{"FirstTopic", "Rye & Oats", "Rye & Oats"}));

    Run("newtemplate", "FormNewTopic", [](QWidget& dialog) {
        EXPECT_EQ(dialog.windowTitle(), "Create New Topic Template");
        EXPECT_EQ(dialog.findChild<QLineEdit*>("EditFile")->text(), "NewTemplate.htm");
        EXPECT_FALSE(dialog.findChild<QWidget*>("EditAlias")->isVisible());
        EXPECT_LT(dialog.height(), 500);
        Type(dialog, "EditFile", "Mine.htm");
        QTest::keyClick(&dialog, Qt::Key_Return);
    });
    EXPECT_TRUE(TopicShows("[TITLE]"));
    EXPECT_EQ(folder.Read("inst/Topic Templates/htmlhelp/Mine.htm"),
              "<title>[TITLE]</title><body><h1>[TITLE]</h1>");

    Run("projopt", "FormProjectSettings", [this](QWidget& dialog) {
        auto* tabs = dialog.findChild<QTabWidget*>("tbsOptions");
        EXPECT_EQ(tabs->currentIndex(), 0);
        EXPECT_FALSE(tabs->isTabVisible(3));
        CheckLabels(dialog);
        Type(dialog, "EditImageDir", "/pictures");
        tabs->setCurrentIndex(1);
        CheckLabels(dialog);
        Type(dialog, "EditTitle", "The Other Guide");
        dialogs.Expect("Message",
                       [](QWidget& message) { QTest::keyClick(&message, Qt::Key_Return); });
        Click(dialog, "cmdOK");
        EXPECT_EQ(tabs->currentIndex(), 0);
        EXPECT_EQ(FocusOf(dialog), "EditImageDir");
        Type(dialog, "EditImageDir", "art/small");
        Click(dialog, "cmdOK");
    });
    EXPECT_EQ(run->window.windowTitle(), "Quorrel HTML Help Edition - The Other Guide");
    EXPECT_TRUE(QFileInfo(QString::fromStdString(folder.Native("book/art/small"))).isDir());
    EXPECT_FALSE(folder.Exists("book/guide.hhp"));
    FileSave_Click(Main());
    EXPECT_NE(folder.Read("book/guide.hhp").find("Title=The Other Guide\r\n"), std::string::npos);
    EXPECT_NE(folder.Read("book/guide.hhk").find("Bread"), std::string::npos);
    EXPECT_NE(folder.Read("book/guide.prj").find("images=art\\small\r\n"), std::string::npos);
}

TEST_F(NewTopicsByHand, RowsOfTheTopicListAreCopiedDraggedAndRemoved) {
    StartAndOpen();
    auto* topics = Find<TopicsPane>("ListTopics");
    Main().window.TabStrip1.SelectedIndex = left_tab::kTopics;
    Main().topics.ListTopics.At(2).SetSubItem(topic_cell::kInteger, "77");
    Main().window.Named("popcopyinteger").Checked = true;
    ASSERT_TRUE(QTest::qWaitFor([&] { return topics->model()->rowCount() == 3; }));
    ClickItem(topics, topics->model()->index(1, 0));
    EXPECT_EQ(QGuiApplication::clipboard()->text(), "77");

    ASSERT_TRUE(TopicShows("first body"));
    Drag(topics, topics->model()->index(1, 0), Find<QWidget>("DHTMLEdit1"), QPoint(300, 300));
    EXPECT_TRUE(TopicShows("Mango"));
    EXPECT_NE(Main().DHTMLEdit1.DocumentHTML().find("<a href=\"third.htm\">Mango</a>"),
              std::string::npos);
    Main().window.TabStrip2.SelectedIndex = right_tab::kOrganizeTOC;
    auto* tree = Find<QTreeView>("Tree1");
    const QPoint last = tree->visualRect(tree->model()->index(1, 0)).center();
    Drag(topics, topics->model()->index(1, 0), tree->viewport(), last + QPoint(0, 5));
    EXPECT_EQ(Column(tree), (QStringList{"Start", "End", "Mango"}));
    EXPECT_EQ(Main().contents.drag_source, -1);
    Main().window.TabStrip2.SelectedIndex = right_tab::kNormal;

    dialogs.Expect("Message", [](QWidget& box) {
        static_cast<QMessageBox&>(box).button(QMessageBox::Yes)->click();
    });
    run->window.findChild<QAction*>("poplstdelete")->trigger();
    EXPECT_TRUE(QTest::qWaitFor([&] { return topics->model()->rowCount() == 2; }));
    EXPECT_EQ(Column(topics), (QStringList{"Apple", "Zebra"}));
    EXPECT_FALSE(folder.Exists("demo & more/html/Third.HTM"));
}

}  // namespace
}  // namespace quorrel::test
