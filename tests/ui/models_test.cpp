#include <gtest/gtest.h>

#include <QAbstractItemModelTester>
#include <QSignalSpy>
#include <QTest>
#include <QTreeView>

#include <random>

#include "platform/failure.hpp"
#include "ui/list_view_model.hpp"
#include "ui/report_list.hpp"
#include "ui/tree_view_model.hpp"

namespace quorrel::test {
namespace {

using Tester = QAbstractItemModelTester;

// The tester ends the program at the first breach.
constexpr auto kFatal = Tester::FailureReportingMode::Fatal;

TEST(ListViewModelTest, IsSoundWhileTheTableChanges) {
    ListView table(3, 0);
    table.columns = {{"A", 1500}, {"", 0}, {"C", 3000}};
    ListViewModel model(table);
    const Tester tester(&model, kFatal);
    QTreeView view;
    view.setModel(&model);
    view.show();
    EXPECT_EQ(model.columnCount(), 2);
    EXPECT_EQ(model.headerData(1, Qt::Horizontal).toString(), "C");
    for (int round = 0; round < 3; ++round) {
        for (const char* text : {"c", "a", "b"}) table.Add(text).SetSubItem(2, text);
        EXPECT_EQ(model.rowCount(), 0) << "no row is shown before the logic is at rest";
        EXPECT_TRUE(QTest::qWaitFor([&] { return model.rowCount() == 3; }));
        QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
        table.At(1).SetSubItem(2, "new");
        EXPECT_TRUE(QTest::qWaitFor([&] { return model.index(0, 1).data() == "new"; }));
        EXPECT_EQ(resets.count(), 0) << "a view keeps its place";
        const QModelIndex old = model.index(2, 0);
        table.Remove(3);
        EXPECT_FALSE(old.data().isValid());
        EXPECT_TRUE(QTest::qWaitFor([&] { return model.rowCount() == 2; }));
        table.Clear();
        EXPECT_TRUE(QTest::qWaitFor([&] { return model.IsFilled(); }));
        EXPECT_EQ(model.rowCount(), 0);
    }
}

TEST(ListViewModelTest, AHundredThousandRowsAreTakenInAtOnce) {
    ListView table(2, 0);
    table.columns = {{"A", 1500}, {"B", 1500}};
    ReportList view(table, "list");
    view.resize(300, 400);
    view.show();
    int asked = 0;
    view.Rows().shown_text = [&](int, const ListRow& row) {
        ++asked;
        return row.Text();
    };
    QSignalSpy resets(&view.Rows(), &QAbstractItemModel::modelReset);
    constexpr int kRows = 100000;
    for (int i = 0; i < kRows; ++i) table.Add(std::to_string(i)).SetSubItem(1, "x");
    EXPECT_TRUE(QTest::qWaitFor([&] { return view.Rows().rowCount() == kRows; }));
    table.Select(&table.At(kRows));
    view.grab();
    EXPECT_EQ(view.currentIndex().row(), kRows - 1);
    EXPECT_EQ(resets.count(), 2) << "one to empty the model and one to fill it";
    EXPECT_GT(asked, 0);
    EXPECT_LT(asked, 1000) << "only rows in sight are asked for";
}

QString ShapeOf(const QAbstractItemModel& model, const QModelIndex& parent = {}) {
    QString shape;
    for (int i = 0; i < model.rowCount(parent); ++i) {
        const QModelIndex index = model.index(i, 0, parent);
        shape += index.data().toString() + "(" + ShapeOf(model, index) + ")";
    }
    return shape;
}

TEST(TreeViewModelTest, FollowsEachStepOfTheTree) {
    TreeView tree;
    TreeViewModel model(tree);
    const Tester tester(&model, kFatal);
    QTreeView view;
    view.setModel(&model);
    view.show();
    QSignalSpy resets(&model, &QAbstractItemModel::modelReset);
    std::mt19937 random(1);
    for (int step = 0; step < 500; ++step) {
        const auto any = [&]() -> TreeNode* {
            const int count = tree.Count();
            return count == 0 ? nullptr : &tree.At(1 + static_cast<int>(random() % count));
        };
        TreeNode* const node = any();
        TreeNode* const other = any();
        const unsigned choice = node == nullptr ? 0 : random() % 8;
        if (choice < 4) {
            const auto relation = static_cast<NodeRelation>(2 + random() % 3);
            tree.Add(node, relation, std::to_string(step), 3, 3);
        } else if (choice == 4) {
            tree.Remove(*node);
        } else if (choice == 5) {
            tree.RemoveChildren(*node);
        } else {
            try {
                step % 2 == 0 ? tree.SetParent(*node, other) : tree.MoveChildren(*node, *other);
            } catch (const RuntimeError&) {
                // A node does not go below itself.
            }
        }
        ASSERT_TRUE(model.IsFilled());
        const TreeViewModel fresh(tree);
        ASSERT_EQ(ShapeOf(model), ShapeOf(fresh)) << step;
        view.expandAll();
        QCoreApplication::processEvents();
    }
    EXPECT_EQ(resets.count(), 0) << "so a view keeps its place";
    const QPersistentModelIndex last = model.IndexOf(&tree.At(tree.Count()));
    const QString text = last.data().toString();
    tree.Add(tree.Roots().front(), NodeRelation::kPrevious, "first", 3, 3);
    EXPECT_EQ(last.data().toString(), text);
    const QModelIndex stale = last;
    tree.Clear();
    EXPECT_EQ(model.rowCount(), 0);
    EXPECT_EQ(model.NodeAt(stale), nullptr);
    EXPECT_FALSE(model.parent(stale).isValid());
    view.grab();
}

}  // namespace
}  // namespace quorrel::test
