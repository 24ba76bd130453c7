#include "ui/tree_view_model.hpp"

#include <QFont>
#include <QMetaObject>

#include "contents/contents_state.hpp"
#include "platform/text.hpp"
#include "ui/listen.hpp"
#include "ui/metrics.hpp"
#include "ui/qt_text.hpp"

namespace quorrel {
namespace {

/// With the same picture for a selected row, where the style would tint it beyond recognition.
QIcon NodeIcon(const QString& name) {
    const QString file = ":/quorrel/icons/" + name + ".svg";
    QIcon icon(file);
    icon.addFile(file, {}, QIcon::Selected);
    return icon;
}

}  // namespace

TreeViewModel::TreeViewModel(TreeView& tree, QObject* parent)
    : QAbstractItemModel(parent),
      tree_(tree),
      open_book_(NodeIcon("open_book")),
      closed_book_(NodeIcon("closed_book")),
      page_(NodeIcon("page")) {
    Listen(tree_.nodes_changed, this, [this] { Drop(); });
    Listen(tree_.node_changed, this, [this](TreeNode& node) {
        const QModelIndex changed = IndexOf(&node);
        if (changed.isValid()) emit dataChanged(changed, changed);
    });
}

void TreeViewModel::Drop() {
    if (!filled_) return;
    // Before the views hear of it: they may still ask about indexes of nodes that are gone.
    filled_ = false;
    beginResetModel();
    endResetModel();
    QMetaObject::invokeMethod(this, &TreeViewModel::Fill, Qt::QueuedConnection);
}

void TreeViewModel::Fill() {
    beginResetModel();
    filled_ = true;
    endResetModel();
    emit Filled();
}

TreeNode* TreeViewModel::NodeAt(const QModelIndex& index) const {
    if (!filled_ || !index.isValid() || index.model() != this) return nullptr;
    return static_cast<TreeNode*>(index.internalPointer());
}

QModelIndex TreeViewModel::IndexOf(const TreeNode* node) const {
    return node == nullptr || !filled_ ? QModelIndex() : createIndex(node->Row(), 0, node);
}

QModelIndex TreeViewModel::index(int row, int column, const QModelIndex& parent) const {
    if (column != 0 || row < 0 || row >= rowCount(parent)) return {};
    const TreeNode* node = NodeAt(parent);
    return createIndex(
        row, 0,
        node == nullptr ? tree_.Roots()[static_cast<std::size_t>(row)] : node->ChildAt(row));
}

QModelIndex TreeViewModel::parent(const QModelIndex& child) const {
    const TreeNode* node = NodeAt(child);
    return node == nullptr ? QModelIndex() : IndexOf(node->Parent());
}

int TreeViewModel::rowCount(const QModelIndex& parent) const {
    if (!filled_ || parent.column() > 0) return 0;
    if (!parent.isValid()) return static_cast<int>(tree_.Roots().size());
    return NodeAt(parent)->Children();
}

int TreeViewModel::columnCount(const QModelIndex&) const {
    return 1;
}

const QIcon& TreeViewModel::IconOf(const TreeNode& node) const {
    if (node.Image >= node_image::kPage) return page_;
    return node.Expanded ? open_book_ : closed_book_;
}

QVariant TreeViewModel::data(const QModelIndex& index, int role) const {
    const TreeNode* node = NodeAt(index);
    if (node == nullptr) return {};
    switch (role) {
        case Qt::DisplayRole:
            return ToQt(FirstCharacters(node->Text, kShownCharacters));
        case Qt::DecorationRole:
            return IconOf(*node);
        case Qt::FontRole: {
            if (!node->Bold) return {};
            QFont bold;
            bold.setBold(true);
            return bold;
        }
        default:
            return {};
    }
}

void TreeViewModel::SetExpanded(const QModelIndex& index, bool expanded) {
    TreeNode* node = NodeAt(index);
    if (node == nullptr || node->Expanded == expanded) return;
    node->Expanded = expanded;
    emit dataChanged(index, index, {Qt::DecorationRole});
}

}  // namespace quorrel
