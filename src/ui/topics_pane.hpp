// The table of topics at the left.
#pragma once

#include "ui/project_drag.hpp"
#include "ui/report_list.hpp"

namespace quorrel {

struct MainForm;
class WindowSettings;

class TopicsPane : public ReportList {
    Q_OBJECT
  public:
    explicit TopicsPane(MainForm& main, QWidget* parent = nullptr);

    /// Takes the columns of the running edition, with the widths that the user gave them.
    void AdoptColumns(const WindowSettings& settings);
    void SaveColumns(WindowSettings& settings) const;

    DragRunner run_drag = RunDrag;

  protected:
    void startDrag(Qt::DropActions actions) override;

  private:
    void SortBySection(int section);
    void ShowSortColumn();
    [[nodiscard]] QString SettingsName() const;

    MainForm& main_;
};

}  // namespace quorrel
