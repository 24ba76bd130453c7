// The report list as the toolkit's tables want it.
#pragma once

#include <QAbstractTableModel>

#include <functional>
#include <vector>

#include "platform/controls/list_view.hpp"

namespace quorrel {

/// Shows the visible columns of a table that outlives it.
///
/// The table tells of each row that comes, a hundred thousand times for a large project, and its
/// row numbers and rows die with the next change. So the first change empties the model at once,
/// and it is filled again from the event loop, when the logic has come to rest.
class ListViewModel : public QAbstractTableModel {
    Q_OBJECT
  public:
    explicit ListViewModel(ListView& table, QObject* parent = nullptr);

    /// What is shown of a cell where that is not its text.
    std::function<std::string(int column, const ListRow& row)> shown_text;

    Qt::ItemFlags flags(const QModelIndex& index) const override;
    int rowCount(const QModelIndex& parent = {}) const override;
    int columnCount(const QModelIndex& parent = {}) const override;
    QVariant data(const QModelIndex& index, int role = Qt::DisplayRole) const override;
    QVariant headerData(int section, Qt::Orientation orientation,
                        int role = Qt::DisplayRole) const override;

    /// Null where the index is of no row that is there.
    [[nodiscard]] ListRow* RowAt(const QModelIndex& index) const;
    /// An invalid index while the model waits to be filled.
    [[nodiscard]] QModelIndex IndexOf(const ListRow* row) const;
    [[nodiscard]] bool IsFilled() const { return filled_; }

    /// The table's number of a visible column.
    [[nodiscard]] int TableColumn(int section) const;
    [[nodiscard]] int WidthOf(int section) const;  // pixels
    /// Takes over the table's columns, of whose change nothing tells.
    void AdoptColumns();

  signals:
    /// The rows are there again.
    void Filled();

  private:
    void Drop();
    void Fill();
    void NoteContentChange();
    void ShowContentChange();
    void ReadColumns();

    ListView& table_;
    std::vector<int> columns_;
    int rows_ = 0;
    bool filled_ = true;
    bool content_changed_ = false;
};

}  // namespace quorrel
