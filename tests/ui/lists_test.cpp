#include <QHeaderView>
#include <QLabel>
#include <QMenu>
#include <QTabBar>
#include <QTest>
#include <QTreeView>

#include "ui/window_fixture.hpp"

namespace quorrel::test {
namespace {

class Lists : public WindowFixture {
  protected:
    void SetUp() override { StartAndOpen(); }

    QTreeView* ShowTab(int number) {
        Find<QTabBar>("TabStrip1")->setCurrentIndex(number - 1);
        const char* names[] = {"Tree1", "ListTopics", "ListKeywords"};
        return Find<QTreeView>(names[number - 1]);
    }
};

TEST_F(Lists, ClicksAndEnterShowTopicsAndAnArrowKeyOnlySelects) {
    auto* tree = ShowTab(left_tab::kContents);
    QTest::keyClick(tree, Qt::Key_Down);
    EXPECT_EQ(Main().contents.Tree1.SelectedItem()->Text, "End");
    EXPECT_TRUE(Main().editor.main_path.ends_with("first.htm"));
    QTest::keyClick(tree, Qt::Key_Return);
    EXPECT_TRUE(TopicShows("third body"));
    ClickItem(tree, tree->model()->index(0, 0));
    EXPECT_TRUE(TopicShows("first body"));
    EXPECT_EQ(Find<QLabel>("StatusBar1.1")->text(), "Zebra");
    auto* topics = ShowTab(left_tab::kTopics);
    EXPECT_EQ(topics->currentIndex().data(), "Zebra");
    DoubleClickItem(topics, topics->model()->index(0, 0));
    EXPECT_TRUE(TopicShows("second body"));
}

TEST_F(Lists, ABookTellsTheLogicThatItIsOpen) {
    auto* tree = ShowTab(left_tab::kContents);
    const TreeNode& book = *Main().contents.Tree1.Roots().front();
    const auto picture = [&] {
        const QIcon icon = tree->model()->index(0, 0).data(Qt::DecorationRole).value<QIcon>();
        return icon.pixmap(16, 16).toImage();
    };
    const QImage closed = picture();
    tree->expand(tree->model()->index(0, 0));
    EXPECT_TRUE(book.Expanded);
    EXPECT_NE(picture(), closed);
    tree->collapse(tree->model()->index(0, 0));
    EXPECT_FALSE(book.Expanded);
    EXPECT_EQ(picture(), closed);
    Main().contents.Tree1.EnsureVisible(*book.Child());
    EXPECT_TRUE(tree->isExpanded(tree->model()->index(0, 0)));
}

TEST_F(Lists, AHeaderClickSortsTheTopicsAndTheTabsFollowBothWays) {
    auto* tabs = Find<QTabBar>("TabStrip1");
    tabs->setCurrentIndex(2);
    EXPECT_EQ(Main().window.TabStrip1.SelectedIndex(), left_tab::kIndex);
    Main().window.TabStrip1.SelectedIndex = left_tab::kTopics;
    EXPECT_EQ(tabs->currentIndex(), 1);
    auto* topics = Find<QTreeView>("ListTopics");
    EXPECT_TRUE(topics->isVisible());
    QHeaderView* header = topics->header();
    const QPoint place(header->sectionViewportPosition(2) + 5, header->height() / 2);
    QTest::mouseClick(header->viewport(), Qt::LeftButton, {}, place);
    EXPECT_EQ(header->sortIndicatorSection(), 2);
    const QStringList by_location{"Zebra", "Apple", "Mango"};
    EXPECT_TRUE(QTest::qWaitFor([&] { return Column(topics) == by_location; }));
    EXPECT_EQ(topics->currentIndex().data(), "Zebra") << "the selection moves with its row";
    EXPECT_EQ(Main().topics.current_topic_index, 1);
}

TEST_F(Lists, AKeywordOpensItsTopicOrOffersItsTopicsOrLeadsToAnother) {
    auto* index = ShowTab(left_tab::kIndex);
    DoubleClickItem(index, index->model()->index(2, 0));
    EXPECT_EQ(Main().keywords.ListKeywords.SelectedItem()->Text(), "one");
    EXPECT_EQ(index->currentIndex().data(), "one");
    QTest::keyClick(index, Qt::Key_Return);
    EXPECT_TRUE(TopicShows("third body"));

    DoubleClickItem(index, index->model()->index(0, 0));
    auto* menu = index->findChild<QMenu*>("targets");
    ASSERT_NE(menu, nullptr);
    ASSERT_EQ(menu->actions().size(), 2);
    EXPECT_EQ(menu->actions()[1]->text(), "Mango");
    menu->actions()[0]->trigger();
    EXPECT_TRUE(TopicShows("second body"));
}

}  // namespace
}  // namespace quorrel::test
