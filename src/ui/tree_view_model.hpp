// The tree as the toolkit's views want it.
#pragma once

#include <QAbstractItemModel>
#include <QIcon>

#include <functional>

#include "platform/controls/tree_view.hpp"

namespace quorrel {

/// Shows a tree that outlives it. It follows each step of the tree, so that views keep their place
/// and what is open. Where the steps come in masses, as from a reader, it is emptied at once and
/// filled again from the event loop: the indexes hold nodes, which die when the logic removes
/// them.
class TreeViewModel : public QAbstractItemModel {
    Q_OBJECT
  public:
    explicit TreeViewModel(TreeView& tree, QObject* parent = nullptr);

    QModelIndex index(int row, int column, const QModelIndex& parent = {}) const override;
    QModelIndex parent(const QModelIndex& child) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;

    /// Takes an edited caption; false refuses it. Without it captions cannot be edited.
    std::function<bool(TreeNode&, const QString&)> caption_edited;
    bool can_drag = false;

    Qt::ItemFlags flags(const QModelIndex& index) const override;
    bool setData(const QModelIndex& index, const QVariant& value, int role) override;

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
    void BeginStep(const TreeChange& change);
    void EndStep(const TreeChange& change);
    void CountStep();
    void Drop();
    void Fill();
    [[nodiscard]] const QIcon& IconOf(const TreeNode& node) const;

    TreeView& tree_;
    bool filled_ = true;
    bool in_step_ = false;
    int steps_ = 0;  // since the event loop has run
    QIcon open_book_, closed_book_, page_;
};

}  // namespace quorrel
