#include "ui/topics_pane.hpp"

#include <QDrag>
#include <QHeaderView>
#include <QMimeData>

#include "app/main_form.hpp"
#include "project/open_topic.hpp"
#include "project/topic_list.hpp"
#include "ui/qt_text.hpp"
#include "ui/window_settings.hpp"

namespace quorrel {

TopicsPane::TopicsPane(MainForm& main, QWidget* parent)
    : ReportList(main.topics.ListTopics, "ListTopics", parent), main_(main) {
    setAccessibleName("Topics");
    setDragEnabled(true);
    header()->setSectionsClickable(true);
    header()->setSectionsMovable(false);
    header()->setSortIndicatorShown(true);
    connect(header(), &QHeaderView::sectionClicked, this, &TopicsPane::SortBySection);
    connect(&Rows(), &ListViewModel::Filled, this, &TopicsPane::ShowSortColumn);
    row_opened = [this](ListRow& row) { OpenTopicRow(main_, row); };
    connect(this, &QAbstractItemView::clicked, this, [this] { ListTopics_Click(main_); });
}

void TopicsPane::startDrag(Qt::DropActions) {
    ListTopics_DragStart(main_);
    const ContentsState& contents = main_.contents;
    if (contents.drag_list_item != nullptr) {
        auto* item = new QMimeData;
        item->setData(kProjectItemMime, {});
        // The source view and other programs take the link as text.
        item->setText(ToQt(contents.tree_drag_text));
        auto* drag = new QDrag(this);
        drag->setMimeData(item);
        drag->setPixmap(
            QIcon(":/quorrel/icons/page.svg").pixmap(QSize(16, 16), devicePixelRatioF()));
        run_drag(*drag, Qt::CopyAction);
    }
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
