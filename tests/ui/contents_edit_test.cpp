// Editing the contents with mouse and keys.
#include <QCheckBox>
#include <QLineEdit>
#include <QMenu>
#include <QMessageBox>
#include <QScrollBar>
#include <QTest>

#include "contents/node_data.hpp"
#include "project/save_project.hpp"
#include "ui/contents_pane.hpp"
#include "ui/drag.hpp"
#include "ui/window_fixture.hpp"

namespace quorrel::test {
namespace {

class ContentsEditing : public WindowFixture {
  protected:
    void SetUp() override {
        StartAndOpen();
        tree = Find<ContentsPane>("Tree1");
        tree->setFocus();
    }

    [[nodiscard]] QModelIndex Item(const QString& caption) const {
        const QModelIndexList found =
            tree->model()->match(tree->model()->index(0, 0), Qt::DisplayRole, caption, 1,
                                 Qt::MatchExactly | Qt::MatchRecursive);
        return found.isEmpty() ? QModelIndex() : found.constFirst();
    }
    /// All captions as they stand, the children of a book in parentheses.
    [[nodiscard]] std::string Shape() const { return ShapeBelow({}).toStdString(); }
    [[nodiscard]] QString ShapeBelow(const QModelIndex& parent) const {
        QStringList captions;
        for (int i = 0; i < tree->model()->rowCount(parent); ++i) {
            const QModelIndex index = tree->model()->index(i, 0, parent);
            const QString children = ShapeBelow(index);
            captions << index.data().toString() + (children.isEmpty() ? "" : "(" + children + ")");
        }
        return captions.join(' ');
    }
    [[nodiscard]] std::string LogicShape() const {
        return LogicShape(run->main.contents.Tree1.Roots()).toStdString();
    }
    void DragItem(const QString& from, const QString& to, double part) {
        const QRect row = tree->visualRect(Item(to));
        const QPoint end(row.center().x(), row.top() + static_cast<int>(row.height() * part));
        Drag(tree, Item(from), tree->viewport(), end);
    }
    void ChooseEntry(const char* name) {
        auto* menu = Find<QMenu>("mnutreepop");
        for (QAction* action : menu->actions()) {
            if (action->objectName() == name) action->trigger();
        }
    }

    ContentsPane* tree = nullptr;

  private:
    static QString LogicShape(const std::vector<TreeNode*>& nodes) {
        QStringList captions;
        for (const TreeNode* node : nodes) {
            std::vector<TreeNode*> children;
            for (int i = 0; i < node->Children(); ++i) children.push_back(node->ChildAt(i));
            captions << QString::fromStdString(node->Text) +
                            (children.empty() ? "" : "(" + LogicShape(children) + ")");
        }
        return captions.join(' ');
    }
};

TEST_F(ContentsEditing, F2EditsTheCaption) {
    ClickItem(tree, Item("Start"));
    tree->setFocus();
    const auto type = [&](const QString& text, Qt::Key end) {
        QTest::keyClick(tree, Qt::Key_F2);
        auto* editor = tree->viewport()->findChild<QLineEdit*>();
        ASSERT_NE(editor, nullptr) << "the main window's F2 is another command";
        editor->setText(text);
        QTest::keyClick(editor, end);
        EXPECT_TRUE(
            QTest::qWaitFor([&] { return tree->viewport()->findChild<QLineEdit*>() == nullptr; }));
    };
    const std::string open = Main().editor.main_path;
    tree->setCurrentIndex(Item("End"));
    type("The end", Qt::Key_Return);
    EXPECT_EQ(LogicShape(), "Start(Inside) The end");
    EXPECT_EQ(Main().editor.main_path, open) << "the key that ends the edit opens nothing";
    tree->setCurrentIndex(Item("Start"));
    type("A book", Qt::Key_Return);
    EXPECT_EQ(LogicShape(), "A book(Inside) The end");
    type("Other", Qt::Key_Escape);
    dialogs.Expect("Message", [](QWidget& box) {
        EXPECT_EQ(static_cast<QMessageBox&>(box).text(),
                  "You must enter some text for this Contents item.");
        QTest::keyClick(&box, Qt::Key_Return);
    });
    type("", Qt::Key_Return);
    EXPECT_EQ(Shape(), "A book(Inside) The end");
    EXPECT_TRUE(dialogs.IsDone());
}

TEST_F(ContentsEditing, TheMouseMovesNodes) {
    tree->expand(Item("Start"));
    QCoreApplication::processEvents();
    DragItem("End", "Inside", 0.1);
    EXPECT_EQ(LogicShape(), "Start(End Inside)");
    EXPECT_EQ(Shape(), LogicShape());
    EXPECT_EQ(tree->currentIndex().data(), "End");
    EXPECT_TRUE(tree->isExpanded(Item("Start"))) << "what was open stays open";
    DragItem("Inside", "Start", 0.1);
    EXPECT_EQ(LogicShape(), "Inside Start(End)");
    DragItem("Start", "End", 0.5);
    EXPECT_EQ(LogicShape(), "Inside Start(End)") << "not into itself";
    DragItem("Inside", "Start", 0.95);
    EXPECT_EQ(Shape(), "Start(End) Inside");
    EXPECT_TRUE(Main().contents.toc_dirty);
    EXPECT_EQ(Main().contents.drag_source, drag_kind::kNone);
    EXPECT_FALSE(Main().contents.Tree1.SelectedItem()->Bold);
}

TEST_F(ContentsEditing, AltWithTheArrowsMovesNodes) {
    ClickItem(tree, Item("End"));
    tree->setFocus();
    const auto press = [&](Qt::Key key, const char* shape) {
        QTest::keyClick(tree, key, Qt::AltModifier);
        EXPECT_EQ(Shape(), shape);
        EXPECT_EQ(LogicShape(), shape);
        EXPECT_EQ(tree->currentIndex().data(), "End");
    };
    press(Qt::Key_Up, "End Start(Inside)");
    press(Qt::Key_Down, "Start(Inside) End");
    press(Qt::Key_Right, "Start(Inside End)");
    press(Qt::Key_Left, "Start(Inside) End");
    press(Qt::Key_Left, "Start(Inside) End");
}

TEST_F(ContentsEditing, MenuAndDeleteKeyAddAndRemove) {
    ClickItem(tree, Item("Start"));
    tree->setFocus();
    ChooseEntry("popnewbook");
    EXPECT_EQ(Shape(), "Start(Inside) New Folder(New Topic) End");
    EXPECT_TRUE(tree->isExpanded(Item("New Folder")));
    dialogs.Expect("Message", [](QWidget& box) {
        static_cast<QMessageBox&>(box).button(QMessageBox::Yes)->click();
    });
    QTest::keyClick(tree, Qt::Key_Delete);
    EXPECT_EQ(Shape(), "New Folder(New Topic) End");
    EXPECT_EQ(Main().contents.Tree1.SelectedItem()->Text,
              tree->currentIndex().data().toString().toStdString());
    tree->setCurrentIndex(Item("End"));
    ChooseEntry("pop1delete");
    EXPECT_EQ(LogicShape(), "New Folder(New Topic)");
}

TEST_F(ContentsEditing, ThePanelEditsTheSelectedNode) {
    Find<QTabBar>("TabStrip2")->setCurrentIndex(right_tab::kOrganizeTOC - 1);
    auto* panel = Find<QWidget>("PictureTOCEdit");
    ASSERT_TRUE(panel->isVisible());
    ClickItem(tree, Item("End"));
    auto* text = Find<QLineEdit>("EditTOCText");
    auto* location = Find<QLineEdit>("EditTOCLocation");
    EXPECT_EQ(text->text(), "End");
    EXPECT_EQ(location->text().toLower(), "html/third.htm");
    EXPECT_TRUE(Find<QLineEdit>("EditFrame")->isVisible());
    text->selectAll();
    QTest::keyClicks(text, "Last");
    EXPECT_EQ(Shape(), "Start(Inside) Last");
    text->selectAll();
    QTest::keyClick(text, Qt::Key_Delete);
    QTest::keyClick(text, Qt::Key_Return);
    EXPECT_EQ(Shape(), "Start(Inside) Last") << "a caption is never empty";
    QTest::keyClicks(Find<QLineEdit>("EditFrame"), "left");
    tree->setFocus();
    QTest::keyClick(tree, Qt::Key_Up);
    EXPECT_EQ(text->text(), "Start") << "keys select as well";
    const TreeNode& last = *Main().contents.Tree1.Roots().back();
    EXPECT_EQ(UnpackNodeData(last.Tag).extra, ",left,,,");
    auto* book = Find<QCheckBox>("CheckTOCIsBook");
    EXPECT_TRUE(book->isChecked());
    book->click();
    EXPECT_EQ(Shape(), "Start Inside Last");
    tree->setCurrentIndex(Item("Last"));
    EXPECT_TRUE(QTest::qWaitFor([&] { return text->text() == "Last"; })) << "however selected";
    Main().contents.Tree1.Clear();
    EXPECT_FALSE(text->isEnabled());
}

TEST_F(ContentsEditing, ADropOnTheTopicLeavesALink) {
    ASSERT_TRUE(TopicShows("first body"));
    auto* topic = Find<QWidget>("DHTMLEdit1");
    Drag(tree, Item("End"), topic, QPoint(300, 300));
    EXPECT_TRUE(TopicShows("End"));
    EXPECT_EQ(Shape(), "Start(Inside) End");
    EXPECT_NE(Main().DHTMLEdit1.DocumentHTML().find("hird.htm"), std::string::npos);
}

TEST_F(ContentsEditing, ALargeTreeKeepsItsPlace) {
    TreeView& contents = Main().contents.Tree1;
    for (int i = 0; i < 3000; ++i) {
        contents.Add(nullptr, NodeRelation::kChild, "page " + std::to_string(i), 3, 3);
    }
    EXPECT_TRUE(QTest::qWaitFor([&] { return Item("page 2999").isValid(); }));
    tree->expand(Item("Start"));
    tree->scrollTo(Item("page 1500"));
    const int place = tree->verticalScrollBar()->value();
    EXPECT_GT(place, 0);
    contents.Remove(contents.At(4));
    contents.Add(&contents.At(2000), NodeRelation::kNext, "new", 3, 3);
    EXPECT_TRUE(Item("new").isValid()) << "at once";
    QCoreApplication::processEvents();
    EXPECT_NEAR(tree->verticalScrollBar()->value(), place, 2);
    EXPECT_TRUE(tree->isExpanded(Item("Start")));
}

}  // namespace
}  // namespace quorrel::test
