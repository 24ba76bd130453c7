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
    Listen(tree_.changing, this, [this](const TreeChange& change) { BeginStep(change); });
    Listen(tree_.has_changed, this, [this](const TreeChange& change) { EndStep(change); });
    Listen(tree_.node_changed, this, [this](TreeNode& node) {
        const QModelIndex changed = IndexOf(&node);
        if (changed.isValid()) emit dataChanged(changed, changed);
    });
}

void TreeViewModel::CountStep() {
    if (steps_++ > 0) return;
    QMetaObject::invokeMethod(
        this, [this] { steps_ = 0; }, Qt::QueuedConnection);
}

void TreeViewModel::BeginStep(const TreeChange& change) {
    if (!filled_) return;
    CountStep();
    // A step costs the view more than a node costs a new filling.
    constexpr int kMostSteps = 100;
    if (steps_ > kMostSteps || change.kind == TreeChange::Kind::kClear) return Drop();
    const QModelIndex parent = IndexOf(change.parent);
    const int last = change.row + change.count - 1;
    in_step_ = true;
    switch (change.kind) {
        case TreeChange::Kind::kInsert:
            return beginInsertRows(parent, change.row, last);
        case TreeChange::Kind::kRemove:
            return beginRemoveRows(parent, change.row, last);
        default: {
            const QModelIndex to = IndexOf(change.new_parent);
            in_step_ = beginMoveRows(parent, change.row, last, to, rowCount(to));
            if (!in_step_) Drop();
        }
    }
}

void TreeViewModel::EndStep(const TreeChange& change) {
    if (!in_step_) return;
    in_step_ = false;
    switch (change.kind) {
        case TreeChange::Kind::kInsert:
            return endInsertRows();
        case TreeChange::Kind::kRemove:
            return endRemoveRows();
        default:
            return endMoveRows();
    }
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
        case Qt::EditRole:
            return ToQt(node->Text);
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

Qt::ItemFlags TreeViewModel::flags(const QModelIndex& index) const {
    Qt::ItemFlags flags = QAbstractItemModel::flags(index);
    if (!index.isValid()) return flags;
    if (caption_edited) flags |= Qt::ItemIsEditable;
    if (can_drag) flags |= Qt::ItemIsDragEnabled;
    return flags;
}

bool TreeViewModel::setData(const QModelIndex& index, const QVariant& value, int role) {
    TreeNode* node = NodeAt(index);
    if (node == nullptr || role != Qt::EditRole || !caption_edited) return false;
    return caption_edited(*node, value.toString());
}

void TreeViewModel::SetExpanded(const QModelIndex& index, bool expanded) {
    TreeNode* node = NodeAt(index);
    if (node == nullptr || node->Expanded == expanded) return;
    node->Expanded = expanded;
    emit dataChanged(index, index, {Qt::DecorationRole});
}

}  // namespace quorrel
