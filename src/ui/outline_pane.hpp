// The tree of the printed document and the panel below it.
#pragma once

#include <QLabel>
#include <QTreeView>

namespace quorrel {

struct MainForm;

class OutlinePane : public QTreeView {
    Q_OBJECT
  public:
    explicit OutlinePane(MainForm& main, QWidget* parent = nullptr);
};

class OutlinePanel : public QLabel {
    Q_OBJECT
  public:
    OutlinePanel();
};

}  // namespace quorrel
