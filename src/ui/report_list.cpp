#include "ui/report_list.hpp"

#include <QHeaderView>
#include <QScrollBar>

#include "ui/enter_key.hpp"
#include "ui/listen.hpp"

namespace quorrel {

ReportList::ReportList(ListView& table, const QString& name, QWidget* parent)
    : QTreeView(parent), table_(table), model_(new ListViewModel(table, this)) {
    setObjectName(name);
    setRootIsDecorated(false);
    setItemsExpandable(false);
    setUniformRowHeights(true);
    setAllColumnsShowFocus(true);
    setSelectionMode(QAbstractItemView::SingleSelection);
    setEditTriggers(QAbstractItemView::NoEditTriggers);
    // A tab leaves the list, it does not walk through its cells.
    setTabKeyNavigation(false);
    setModel(model_);
    header()->setStretchLastSection(true);
    connect(model_, &QAbstractItemModel::modelAboutToBeReset, this, [this] {
        if (model_->IsFilled() || model_->rowCount() > 0) scroll_ = verticalScrollBar()->value();
    });
    connect(model_, &ListViewModel::Filled, this, [this] {
        FollowTable();
        if (!currentIndex().isValid()) verticalScrollBar()->setValue(scroll_);
    });
    connect(selectionModel(), &QItemSelectionModel::selectionChanged, this, &ReportList::TellTable);
    connect(this, &QAbstractItemView::doubleClicked, this, &ReportList::OpenRow);
    new EnterKey(this, [this] { OpenRow(currentIndex()); });
    Listen(table_.changed, this, [this] { FollowTable(); });
    FollowTable();
}

void ReportList::ApplyColumnWidths() {
    // The last one stretches.
    for (int i = 0; i + 1 < model_->columnCount(); ++i) {
        header()->resizeSection(i, model_->WidthOf(i));
    }
}

void ReportList::OpenRow(const QModelIndex& index) {
    ListRow* row = model_->RowAt(index);
    if (row != nullptr && row_opened) row_opened(*row);
}

void ReportList::FollowTable() {
    const QModelIndex selected = model_->IndexOf(table_.SelectedItem());
    if (!model_->IsFilled()) return;
    if (!selected.isValid()) return selectionModel()->clear();
    if (selected.row() == currentIndex().row() && selectionModel()->isSelected(selected)) return;
    selectionModel()->setCurrentIndex(
        selected, QItemSelectionModel::ClearAndSelect | QItemSelectionModel::Rows);
    scrollTo(selected);
}

void ReportList::TellTable() {
    const QModelIndexList rows = selectionModel()->selectedRows();
    ListRow* row = rows.isEmpty() ? nullptr : model_->RowAt(rows.front());
    if (row == nullptr || row == table_.SelectedItem()) return;
    table_.Select(row);
    if (row_selected) row_selected();
}

}  // namespace quorrel
