// The keyword index at the left.
#pragma once

#include "ui/project_drag.hpp"
#include "ui/report_list.hpp"

namespace quorrel {

struct MainForm;

class IndexPane : public ReportList {
    Q_OBJECT
  public:
    explicit IndexPane(MainForm& main, QWidget* parent = nullptr);

    DragRunner run_drag = RunDrag;

  protected:
    void keyPressEvent(QKeyEvent* event) override;
    void keyReleaseEvent(QKeyEvent* event) override;
    void startDrag(Qt::DropActions) override;

  private:
    void OpenKeyword(ListRow& row);
    void OfferTargets(const ListRow& row);

    MainForm& main_;
    bool delete_pressed_ = false;
};

}  // namespace quorrel
