#include "ui/topics_pane.hpp"

#include <QApplication>
#include <QDrag>
#include <QHeaderView>
#include <QMimeData>
#include <QMouseEvent>

#include "app/main_form.hpp"
#include "project/open_topic.hpp"
#include "project/topic_list.hpp"
#include "ui/qt_text.hpp"
#include "ui/window_settings.hpp"

namespace quorrel {

TopicsPane::TopicsPane(MainForm& main, QWidget* parent)
    : ReportList(main.topics.ListTopics, "ListTopics", parent), main_(main) {
    setAccessibleName("Topics");
    header()->setSectionsClickable(true);
    header()->setSectionsMovable(false);
    header()->setSortIndicatorShown(true);
    connect(header(), &QHeaderView::sectionClicked, this, &TopicsPane::SortBySection);
    connect(&Rows(), &ListViewModel::Filled, this, &TopicsPane::ShowSortColumn);
    row_opened = [this](ListRow& row) { OpenTopicRow(main_, row); };
    connect(this, &QAbstractItemView::clicked, this, [this] { ListTopics_Click(main_); });
}

void TopicsPane::mousePressEvent(QMouseEvent* event) {
    pressed_ = event->pos();
    ReportList::mousePressEvent(event);
    row_is_pressed_ = event->button() == Qt::LeftButton && indexAt(pressed_).isValid();
}

void TopicsPane::mouseMoveEvent(QMouseEvent* event) {
    const bool is_drag = row_is_pressed_ && event->buttons().testFlag(Qt::LeftButton);
    if (!is_drag) return ReportList::mouseMoveEvent(event);
    const int way = (event->pos() - pressed_).manhattanLength();
    if (way >= QApplication::startDragDistance()) DragRow();
}

void TopicsPane::DragRow() {
    row_is_pressed_ = false;
    const ListView& table = main_.topics.ListTopics;
    const ListRow* row = table.SelectedItem();
    if (row == nullptr) return;
    ListTopics_DragStart(main_);
    auto* topic = new QMimeData;
    topic->setData(kTopicRowMime, QByteArray::number(table.PositionOf(*row)));
    topic->setText(ToQt(row->Text()));
    auto* drag = new QDrag(this);
    drag->setMimeData(topic);
    drag->setPixmap(QIcon(":/quorrel/icons/page.svg").pixmap(QSize(16, 16), devicePixelRatioF()));
    drag->exec(Qt::CopyAction);
    ListTopics_DragEnd(main_);
}

QString TopicsPane::SettingsName() const {
    return main_.settings.is_javahelp_edition ? "ListTopics.javahelp" : "ListTopics.html";
}

void TopicsPane::AdoptColumns(const WindowSettings& settings) {
    Rows().AdoptColumns();
    ApplyColumnWidths();
    settings.RestoreColumns(SettingsName(), header());
    ShowSortColumn();
}

void TopicsPane::SaveColumns(WindowSettings& settings) const {
    if (header()->count() > 0) settings.SaveColumns(SettingsName(), header());
}

void TopicsPane::SortBySection(int section) {
    SortTopics(main_, Rows().TableColumn(section));
    ShowSortColumn();
}

void TopicsPane::ShowSortColumn() {
    const int sorted = main_.topics.ListTopics.SortColumn();
    for (int i = 0; i < Rows().columnCount(); ++i) {
        if (Rows().TableColumn(i) == sorted) header()->setSortIndicator(i, Qt::AscendingOrder);
    }
}

}  // namespace quorrel
