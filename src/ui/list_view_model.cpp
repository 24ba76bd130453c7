#include "ui/list_view_model.hpp"

#include <QMetaObject>

#include "platform/text.hpp"
#include "ui/listen.hpp"
#include "ui/metrics.hpp"
#include "ui/qt_text.hpp"

namespace quorrel {

ListViewModel::ListViewModel(ListView& table, QObject* parent)
    : QAbstractTableModel(parent), table_(table), rows_(table.Count()) {
    ReadColumns();
    Listen(table_.rows_changed, this, [this] { Drop(); });
    Listen(table_.row_changed, this, [this](ListRow&) { NoteContentChange(); });
}

void ListViewModel::ReadColumns() {
    columns_.clear();
    for (std::size_t i = 0; i < table_.columns.size(); ++i) {
        if (table_.columns[i].width > 0) columns_.push_back(static_cast<int>(i));
    }
}

void ListViewModel::AdoptColumns() {
    Drop();
    Fill();
}

void ListViewModel::Drop() {
    if (!filled_) return;
    filled_ = false;
    beginResetModel();
    rows_ = 0;
    endResetModel();
    QMetaObject::invokeMethod(this, &ListViewModel::Fill, Qt::QueuedConnection);
}

void ListViewModel::Fill() {
    if (filled_) return;
    beginResetModel();
    ReadColumns();
    rows_ = table_.Count();
    filled_ = true;
    endResetModel();
    emit Filled();
}

void ListViewModel::NoteContentChange() {
    if (!filled_ || content_changed_) return;
    content_changed_ = true;
    QMetaObject::invokeMethod(this, &ListViewModel::ShowContentChange, Qt::QueuedConnection);
}

void ListViewModel::ShowContentChange() {
    content_changed_ = false;
    if (!filled_ || rows_ == 0 || columns_.empty()) return;
    emit dataChanged(index(0, 0), index(rows_ - 1, columnCount() - 1), {Qt::DisplayRole});
}

Qt::ItemFlags ListViewModel::flags(const QModelIndex& index) const {
    const Qt::ItemFlags flags = QAbstractTableModel::flags(index);
    // Whether rows can be dragged is the view's choice.
    return index.isValid() ? flags | Qt::ItemIsDragEnabled : flags;
}

int ListViewModel::rowCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : rows_;
}

int ListViewModel::columnCount(const QModelIndex& parent) const {
    return parent.isValid() ? 0 : static_cast<int>(columns_.size());
}

ListRow* ListViewModel::RowAt(const QModelIndex& index) const {
    const bool is_there = filled_ && index.isValid() && index.model() == this &&
                          index.row() < rows_ && index.row() < table_.Count();
    return is_there ? &table_.At(index.row() + 1) : nullptr;
}

QModelIndex ListViewModel::IndexOf(const ListRow* row) const {
    if (row == nullptr || !filled_ || columns_.empty()) return {};
    return index(table_.PositionOf(*row) - 1, 0);
}

QVariant ListViewModel::data(const QModelIndex& index, int role) const {
    if (role != Qt::DisplayRole || index.column() >= columnCount()) return {};
    const ListRow* row = RowAt(index);
    if (row == nullptr) return {};
    const int column = TableColumn(index.column());
    if (shown_text) return ToQt(shown_text(column, *row));
    const std::string& text = column == 0 ? row->Text() : row->SubItems(column);
    return ToQt(FirstCharacters(text, kShownCharacters));
}

QVariant ListViewModel::headerData(int section, Qt::Orientation orientation, int role) const {
    if (role != Qt::DisplayRole || orientation != Qt::Horizontal) return {};
    if (section < 0 || section >= columnCount()) return {};
    return ToQt(table_.columns[static_cast<std::size_t>(TableColumn(section))].header);
}

int ListViewModel::TableColumn(int section) const {
    return columns_.at(static_cast<std::size_t>(section));
}

int ListViewModel::WidthOf(int section) const {
    return PixelsOfTwips(table_.columns[static_cast<std::size_t>(TableColumn(section))].width);
}

}  // namespace quorrel
