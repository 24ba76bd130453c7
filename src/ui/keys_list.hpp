// The list of a topic's keywords, which takes keywords dragged out of the index.
#pragma once

#include <QListWidget>

namespace quorrel {

struct MainForm;

class KeysList : public QListWidget {
    Q_OBJECT
  public:
    explicit KeysList(MainForm& main, QWidget* parent = nullptr);

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dropEvent(QDropEvent* event) override;

  private:
    void FollowKeys();

    MainForm& main_;
};

}  // namespace quorrel
