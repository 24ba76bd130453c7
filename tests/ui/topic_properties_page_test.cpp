// The page of a topic's properties, and the index beside it.
#include <QApplication>
#include <QComboBox>
#include <QDialog>
#include <QLabel>
#include <QLineEdit>
#include <QListWidget>
#include <QMessageBox>
#include <QPlainTextEdit>
#include <QPushButton>
#include <QTabBar>
#include <QTest>

#include "project/save_project.hpp"
#include "ui/drag.hpp"
#include "ui/index_pane.hpp"
#include "ui/window_fixture.hpp"

namespace quorrel::test {
namespace {

class PropertiesPage : public WindowFixture {
  protected:
    void SetUp() override {
        StartAndOpen();
        ASSERT_TRUE(TopicShows("first body"));
        Find<QTabBar>("TabStrip2")->setCurrentIndex(right_tab::kProperties - 1);
        ASSERT_TRUE(Find<QWidget>("PictureProperties")->isVisible());
    }
    [[nodiscard]] QStringList Keys() {
        QStringList keys;
        const auto* list = Find<QListWidget>("ListKeys");
        for (int i = 0; i < list->count(); ++i) keys << list->item(i)->text();
        return keys;
    }
    void Type(const QString& key, const QString& sub = {}) {
        QTest::keyClicks(Find<QLineEdit>("EditKeyword"), key);
        QTest::keyClicks(Find<QLineEdit>("EditSubKey"), sub);
        QTest::keyClick(Find<QLineEdit>("EditSubKey"), Qt::Key_Return);
    }
    IndexPane* ShowIndex() {
        Find<QTabBar>("TabStrip1")->setCurrentIndex(left_tab::kIndex - 1);
        QCoreApplication::processEvents();
        return Find<IndexPane>("ListKeywords");
    }
};

TEST_F(PropertiesPage, TitleAndKeywordsReachTheProject) {
    auto* title = Find<QLineEdit>("EditTitle");
    EXPECT_EQ(title->text(), "Zebra");
    EXPECT_EQ(Find<QLabel>("Label3")->text(), "&Alias:");
    EXPECT_FALSE(Find<QPushButton>("Command1")->isEnabled());
    title->selectAll();
    QTest::keyClicks(title, "Quagga");
    Type("animal", "striped");
    Type("zoo");
    EXPECT_EQ(Keys(), (QStringList{"animal:striped", "zoo"}));
    QStringList way;
    for (QWidget* at = title; way.size() < 11; at = QApplication::focusWidget()) {
        way << at->objectName();
        at->setFocus();
        QTest::keyClick(at, Qt::Key_Tab);
    }
    EXPECT_EQ(way.join(' ').toStdString(),
              "EditTitle EditAlias EditInteger ComboStatus TextNotes EditKeyword EditSubKey "
              "ListKeys CommandEdit CommandDelete CommandSeeAlso")
        << "the Tab key";
    EXPECT_TRUE(Find<QLineEdit>("EditKeyword")->text().isEmpty());
    auto* keys = Find<QListWidget>("ListKeys");
    QTest::keyClick(keys, Qt::Key_Return);
    EXPECT_EQ(Find<QLineEdit>("EditKeyword")->text(), "zoo") << "back into the fields";
    QTest::keyClicks(Find<QLineEdit>("EditKeyword"), "s");
    Find<QPushButton>("Command1")->click();
    EXPECT_EQ(Keys(), (QStringList{"animal:striped", "zoos"}));
    QTest::keyClick(keys, Qt::Key_Delete);
    EXPECT_EQ(Keys(), (QStringList{"animal:striped"}));
    FileSave_Click(Main());
    EXPECT_NE(folder.Read("demo & more/html/first.htm").find("<title>Quagga</title>"),
              std::string::npos);
    EXPECT_NE(folder.Read("demo & more/index.hhk").find("striped"), std::string::npos);
}

TEST_F(PropertiesPage, StatusAndNotesStayWithTheTopic) {
    auto* notes = Find<QPlainTextEdit>("TextNotes");
    EXPECT_FALSE(Find<QWidget>("CommandNote")->isVisible());
    Find<QComboBox>("ComboStatus")->setCurrentIndex(2);
    QTest::keyClicks(notes, "one");
    QTest::keyClick(notes, Qt::Key_Return);
    QTest::keyClicks(notes, "two");
    EXPECT_TRUE(Main().project.project_dirty);
    auto* tree = Find<QTreeView>("Tree1");
    ClickItem(tree, tree->model()->index(1, 0));
    EXPECT_TRUE(QTest::qWaitFor([&] { return notes->toPlainText().isEmpty(); }));
    EXPECT_EQ(Find<QComboBox>("ComboStatus")->currentIndex(), 0);
    ClickItem(tree, tree->model()->index(0, 0));
    EXPECT_TRUE(QTest::qWaitFor([&] { return notes->toPlainText() == "one\ntwo"; }));
    EXPECT_EQ(Find<QComboBox>("ComboStatus")->currentIndex(), 2);
    EXPECT_TRUE(Find<QWidget>("CommandNote")->isVisible());
}

TEST_F(PropertiesPage, KeywordsComeFromTheIndex) {
    EXPECT_FALSE(Find<QPushButton>("CommandAddFromIndex")->isEnabled());
    IndexPane* index = ShowIndex();
    auto* keys = Find<QListWidget>("ListKeys");
    Drag(index, index->model()->index(1, 0), keys->viewport(), QPoint(20, 20));
    EXPECT_EQ(Keys(), (QStringList{"one"}));
    index->setCurrentIndex(index->model()->index(0, 0));
    Find<QPushButton>("CommandAddFromIndex")->click();
    EXPECT_EQ(Keys(), (QStringList{"both", "one"}));
    keys->setCurrentRow(0);
    EXPECT_TRUE(Find<QPushButton>("CommandDelete")->isEnabled());
    EXPECT_EQ(Main().contents.drag_source, drag_kind::kNone);
}

TEST_F(PropertiesPage, TheDeleteKeyAsksInTheIndex) {
    IndexPane* index = ShowIndex();
    index->setFocus();
    index->setCurrentIndex(index->model()->index(0, 0));
    dialogs.Expect("Message", [](QWidget& box) {
        static_cast<QMessageBox&>(box).button(QMessageBox::Yes)->click();
    });
    QTest::keyClick(index, Qt::Key_Delete);
    EXPECT_TRUE(QTest::qWaitFor([&] { return Column(index) == QStringList{"one", "other"}; }));
    EXPECT_EQ(index->currentIndex().data(), "one");
}

TEST_F(PropertiesPage, AReferenceIsMadeBesideTheIndex) {
    Find<QPushButton>("CommandSeeAlso")->click();
    auto* dialog = Find<QDialog>("FormSeeAlso");
    ASSERT_TRUE(dialog->isVisible());
    EXPECT_FALSE(dialog->isModal());
    QTreeView* index = Find<QTreeView>("ListKeywords");
    EXPECT_TRUE(index->isVisible()) << "that is where the target is chosen";
    EXPECT_TRUE(QTest::qWaitFor([&] { return index->model()->rowCount() == 3; }));
    index->setCurrentIndex(index->model()->index(1, 0));
    auto* key = dialog->findChild<QLineEdit*>("EditMainKey");
    auto* add = dialog->findChild<QPushButton*>("Command1");
    EXPECT_FALSE(add->isEnabled());
    QTest::keyClicks(key, "uno");
    add->click();
    EXPECT_TRUE(QTest::qWaitFor([&] { return Column(index).contains("uno"); }));
    Find<QPushButton>("CommandSeeAlso")->click();
    EXPECT_EQ(run->window.findChildren<QDialog*>("FormSeeAlso").size(), 1) << "it is there already";
    dialog->findChild<QPushButton*>("CancelButton")->click();
    EXPECT_TRUE(QTest::qWaitFor(
        [&] { return run->window.findChildren<QDialog*>("FormSeeAlso").isEmpty(); }));
}

}  // namespace
}  // namespace quorrel::test
