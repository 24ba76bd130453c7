// A list of rows as the left side and the dialogs show it.
#pragma once

#include <QTreeView>

#include <functional>

#include "ui/list_view_model.hpp"

namespace quorrel {

/// A view of a ListView that keeps the selected row the same on both sides.
class ReportList : public QTreeView {
    Q_OBJECT
  public:
    ReportList(ListView& table, const QString& name, QWidget* parent = nullptr);

    [[nodiscard]] ListViewModel& Rows() { return *model_; }
    /// The table's own widths for the columns.
    void ApplyColumnWidths();

    /// Double click or Enter on a row.
    std::function<void(ListRow&)> row_opened;
    /// The user chose another row.
    std::function<void()> row_selected;

  private:
    void OpenRow(const QModelIndex& index);
    void FollowTable();
    void TellTable();

    ListView& table_;
    ListViewModel* model_;
    int scroll_ = 0;
};

}  // namespace quorrel
