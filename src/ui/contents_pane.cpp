#include "ui/contents_pane.hpp"

#include <QHeaderView>
#include <QKeyEvent>
#include <QMouseEvent>
#include <QScrollBar>

#include <optional>

#include "app/main_form.hpp"
#include "contents/contents_tree.hpp"
#include "contents/open_contents_item.hpp"
#include "ui/enter_key.hpp"
#include "ui/listen.hpp"
#include "ui/metrics.hpp"
#include "ui/qt_text.hpp"
#include "ui/tree_view_model.hpp"

namespace quorrel {
namespace {

constexpr int kDeleteCode = 46;

/// What an arrow key with Alt does to the selected node.
std::optional<NodeMove> MoveOf(const QKeyEvent& event) {
    if (event.modifiers() != Qt::AltModifier &&
        event.modifiers() != (Qt::AltModifier | Qt::KeypadModifier)) {
        return std::nullopt;
    }
    switch (event.key()) {
        case Qt::Key_Up:
            return NodeMove::kUp;
        case Qt::Key_Down:
            return NodeMove::kDown;
        case Qt::Key_Right:
            return NodeMove::kIn;
        case Qt::Key_Left:
            return NodeMove::kOut;
        default:
            return std::nullopt;
    }
}

}  // namespace

ContentsPane::ContentsPane(MainForm& main, QWidget* parent)
    : QTreeView(parent), main_(main), model_(new TreeViewModel(main.contents.Tree1, this)) {
    setObjectName("Tree1");
    setAccessibleName("Contents");
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::EditKeyPressed);
    setDragEnabled(true);
    setAcceptDrops(true);
    setDropIndicatorShown(false);
    connect(&until_open_, &QTimer::timeout, this, [this] { expand(waiting_over_); });
    until_open_.setSingleShot(true);
    ConnectModel();
    TreeView& tree = main_.contents.Tree1;
    Listen(tree.changed, this, [this] { FollowSelection(); });
    Listen(tree.focus_wanted, this, [this] { setFocus(); });
    Listen(tree.reveal, this, [this](TreeNode& node) { Reveal(node); });
    Listen(tree.node_changed, this,
           [this](TreeNode& node) { setExpanded(model_->IndexOf(&node), node.Expanded); });
    tree.hit_test = [this](double x, double y) {
        return model_->NodeAt(
            indexAt({PixelsOfTwips(static_cast<int>(x)), PixelsOfTwips(static_cast<int>(y))}));
    };
    FollowTree();
}

void ContentsPane::ConnectModel() {
    model_->can_drag = true;
    model_->caption_edited = [this](TreeNode& node, const QString& caption) {
        return TakeCaption(node, caption);
    };
    setModel(model_);
    connect(this, &QTreeView::expanded, model_,
            [this](const QModelIndex& index) { model_->SetExpanded(index, true); });
    connect(this, &QTreeView::collapsed, model_,
            [this](const QModelIndex& index) { model_->SetExpanded(index, false); });
    connect(this, &QAbstractItemView::clicked, this, &ContentsPane::OpenNode);
    new EnterKey(this, [this] {
        // The editor of a caption passes on the key that ends it.
        if (state() != EditingState) OpenNode(currentIndex());
    });
    connect(model_, &QAbstractItemModel::modelAboutToBeReset, this, [this] {
        if (model_->rowCount() > 0) scroll_ = verticalScrollBar()->value();
    });
    connect(model_, &TreeViewModel::Filled, this, [this] {
        FollowTree();
        verticalScrollBar()->setValue(scroll_);
        scrollTo(currentIndex());
    });
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &ContentsPane::TellSelection);
}

void ContentsPane::OpenNode(const QModelIndex& index) {
    TreeNode* node = model_->NodeAt(index);
    if (node == nullptr) return;
    main_.contents.Tree1.Select(node);
    Tree1_NodeClick(main_);
}

void ContentsPane::FollowTree() {
    const TreeView& tree = main_.contents.Tree1;
    for (int i = 1; i <= tree.Count(); ++i) {
        const TreeNode& node = tree.At(i);
        if (node.Expanded && node.Children() > 0) setExpanded(model_->IndexOf(&node), true);
    }
    FollowSelection();
}

void ContentsPane::FollowSelection() {
    if (!model_->IsFilled()) return;
    const QModelIndex selected = model_->IndexOf(main_.contents.Tree1.SelectedItem());
    if (!selected.isValid()) return selectionModel()->clear();
    if (selected == currentIndex() && selectionModel()->isSelected(selected)) return;
    selectionModel()->setCurrentIndex(selected, QItemSelectionModel::ClearAndSelect);
    scrollTo(selected);
}

void ContentsPane::Reveal(TreeNode& node) {
    // Where the model waits to be filled, FollowTree shows the selected node.
    for (TreeNode* above = node.Parent(); above != nullptr; above = above->Parent()) {
        setExpanded(model_->IndexOf(above), true);
    }
    const QModelIndex shown = model_->IndexOf(&node);
    if (shown.isValid()) scrollTo(shown);
}

void ContentsPane::TellSelection() {
    const QModelIndexList selected = selectionModel()->selectedIndexes();
    TreeNode* node = selected.isEmpty() ? nullptr : model_->NodeAt(selected.front());
    if (node != nullptr) main_.contents.Tree1.Select(node);
}

bool ContentsPane::TakeCaption(TreeNode& node, const QString& caption) {
    main_.contents.Tree1.Select(&node);
    return Tree1_AfterLabelEdit(main_, FromQt(caption));
}

bool ContentsPane::event(QEvent* event) {
    if (event->type() == QEvent::ShortcutOverride) {
        // While the tree has the keyboard these act on its nodes, whatever the menus say.
        const auto& key = *static_cast<QKeyEvent*>(event);
        const bool is_ours = key.key() == Qt::Key_F2 && key.modifiers() == Qt::NoModifier;
        if (is_ours || MoveOf(key)) event->accept();
    }
    return QTreeView::event(event);
}

void ContentsPane::keyPressEvent(QKeyEvent* event) {
    if (const auto move = MoveOf(*event)) {
        if (!MoveSelectedNode(main_, *move)) main_.screen.Beep();
        return;
    }
    if (event->key() == Qt::Key_Delete) delete_pressed_ = true;
    QTreeView::keyPressEvent(event);
}

void ContentsPane::keyReleaseEvent(QKeyEvent* event) {
    QTreeView::keyReleaseEvent(event);
    if (event->isAutoRepeat()) return;
    // A key that was pressed elsewhere, as in the editor of a caption, deletes nothing here.
    const bool deletes = event->key() == Qt::Key_Delete && delete_pressed_;
    delete_pressed_ = false;
    Tree1_KeyUp(main_, deletes ? kDeleteCode : 0);
}

void ContentsPane::mousePressEvent(QMouseEvent* event) {
    QTreeView::mousePressEvent(event);
    Tree1_MouseDown(main_, TwipsOfPixels(event->pos().x()), TwipsOfPixels(event->pos().y()));
}

}  // namespace quorrel
