// The tree as the toolkit's views want it.
#pragma once

#include <QAbstractItemModel>
#include <QIcon>

#include "platform/controls/tree_view.hpp"

namespace quorrel {

/// Shows a tree that outlives it. The indexes hold nodes, which die when the logic removes them:
/// as in ListViewModel the first change empties the model at once, and it is filled again from
/// the event loop.
class TreeViewModel : public QAbstractItemModel {
    Q_OBJECT
  public:
    explicit TreeViewModel(TreeView& tree, QObject* parent = nullptr);

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

    /// Null where the index is of no node that is there.
    [[nodiscard]] TreeNode* NodeAt(const QModelIndex& index) const;
    /// An invalid index for null and while the model waits to be filled.
    [[nodiscard]] QModelIndex IndexOf(const TreeNode* node) const;
    [[nodiscard]] bool IsFilled() const { return filled_; }

    /// What the view tells when the user opens or closes a book.
    void SetExpanded(const QModelIndex& index, bool expanded);

  signals:
    /// The nodes are there again.
    void Filled();

  private:
    void Drop();
    void Fill();
    [[nodiscard]] const QIcon& IconOf(const TreeNode& node) const;

    TreeView& tree_;
    bool filled_ = true;
    QIcon open_book_, closed_book_, page_;
};

}  // namespace quorrel
