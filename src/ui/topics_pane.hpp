// The table of topics at the left.
#pragma once

#include "ui/report_list.hpp"

namespace quorrel {

struct MainForm;
class WindowSettings;

/// The data of a dragged topic; its bytes are the number of the row. What a drop does with it is
/// in ContentsState.
inline constexpr const char* kTopicRowMime = "application/x-quorrel-topic-row";

class TopicsPane : public ReportList {
    Q_OBJECT
  public:
    explicit TopicsPane(MainForm& main, QWidget* parent = nullptr);

    /// Takes the columns of the running edition, with the widths that the user gave them.
    void AdoptColumns(const WindowSettings& settings);
    void SaveColumns(WindowSettings& settings) const;

  protected:
    void mousePressEvent(QMouseEvent* event) override;
    void mouseMoveEvent(QMouseEvent* event) override;

  private:
    void DragRow();
    void SortBySection(int section);
    void ShowSortColumn();
    [[nodiscard]] QString SettingsName() const;

    MainForm& main_;
    bool row_is_pressed_ = false;
    QPoint pressed_;
};

}  // namespace quorrel
