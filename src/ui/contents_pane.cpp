#include "ui/contents_pane.hpp"

#include <QHeaderView>

#include "app/main_form.hpp"
#include "contents/open_contents_item.hpp"
#include "ui/enter_key.hpp"
#include "ui/listen.hpp"
#include "ui/tree_view_model.hpp"

namespace quorrel {

ContentsPane::ContentsPane(MainForm& main, QWidget* parent)
    : QTreeView(parent), main_(main), model_(new TreeViewModel(main.contents.Tree1, this)) {
    setObjectName("Tree1");
    setAccessibleName("Contents");
    setHeaderHidden(true);
    setUniformRowHeights(true);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    setModel(model_);
    connect(this, &QTreeView::expanded, model_,
            [this](const QModelIndex& index) { model_->SetExpanded(index, true); });
    connect(this, &QTreeView::collapsed, model_,
            [this](const QModelIndex& index) { model_->SetExpanded(index, false); });
    connect(this, &QAbstractItemView::clicked, this, &ContentsPane::OpenNode);
    new EnterKey(this, [this] { OpenNode(currentIndex()); });
    connect(model_, &TreeViewModel::Filled, this, &ContentsPane::FollowTree);
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this,
            &ContentsPane::TellSelection);
    TreeView& tree = main_.contents.Tree1;
    Listen(tree.changed, this, [this] { FollowSelection(); });
    Listen(tree.reveal, this, [this](TreeNode& node) { Reveal(node); });
    Listen(tree.node_changed, this,
           [this](TreeNode& node) { setExpanded(model_->IndexOf(&node), node.Expanded); });
    FollowTree();
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

}  // namespace quorrel
