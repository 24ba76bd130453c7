// The contents tree at the left.
#pragma once

#include <QTreeView>

namespace quorrel {

struct MainForm;
class TreeNode;
class TreeViewModel;

class ContentsPane : public QTreeView {
    Q_OBJECT
  public:
    explicit ContentsPane(MainForm& main, QWidget* parent = nullptr);

  private:
    void OpenNode(const QModelIndex& index);
    void FollowTree();
    void FollowSelection();
    void Reveal(TreeNode& node);
    void TellSelection();

    MainForm& main_;
    TreeViewModel* model_;
};

}  // namespace quorrel
