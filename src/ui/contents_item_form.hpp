// The panel below the contents tree that edits one of its items.
#pragma once

#include <QScrollArea>

#include <string>

class QGridLayout;
class QLabel;
class QLineEdit;

namespace quorrel {

struct MainForm;

class ContentsItemForm : public QScrollArea {
    Q_OBJECT
  public:
    explicit ContentsItemForm(MainForm& main, QWidget* parent = nullptr);

  private:
    [[nodiscard]] QWidget* MakeForm();
    void KeepCaption(QLineEdit* text);
    void AddPlace(QGridLayout* grid);
    void AddIcon(QGridLayout* grid);
    [[nodiscard]] QWidget* MakeIconList();
    [[nodiscard]] QLayout* MakeMarks();
    void FollowItem();
    /// The tree has another node selected than the one that is shown.
    void FollowTree();

    MainForm& main_;
    QWidget* fields_;
    QLabel* title_;
    std::string caption_;   // the last one of the item that was not empty
    bool follows_ = false;  // TreeNodeChanged waits for the event loop
};

}  // namespace quorrel
