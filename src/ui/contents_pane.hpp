// The contents tree: opening, editing and arranging its nodes.
#pragma once

#include <QTimer>
#include <QTreeView>

#include "ui/project_drag.hpp"

namespace quorrel {

struct MainForm;
class TreeNode;
class TreeViewModel;

class ContentsPane : public QTreeView {
    Q_OBJECT
  public:
    explicit ContentsPane(MainForm& main, QWidget* parent = nullptr);

    DragRunner run_drag = RunDrag;

  protected:
    bool event(QEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;
    void paintEvent(QPaintEvent* event) override;
    void startDrag(Qt::DropActions) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    void ConnectModel();
    void OpenNode(const QModelIndex& index);
    void FollowTree();
    void FollowSelection();
    void Reveal(TreeNode& node);
    void TellSelection();
    bool TakeCaption(TreeNode& node, const QString& caption);

    /// The effect of a drop at the pointer, which is marked by a line.
    int ShowDropPlace(QPoint place);
    void HideDropPlace();
    /// Opens a closed book under a pointer that stays there. Qt's own way closes open ones too.
    void WaitToOpen(const QModelIndex& index);
    [[nodiscard]] QModelIndex LastShownBelow(QModelIndex index) const;
    void EndDragOver();

    MainForm& main_;
    TreeViewModel* model_;
    bool delete_pressed_ = false;
    int scroll_ = 0;
    QLine drop_line_;  // null while there is none
    QTimer until_open_;
    QPersistentModelIndex waiting_over_;
};

}  // namespace quorrel
