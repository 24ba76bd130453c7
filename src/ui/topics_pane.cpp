#include "ui/topics_pane.hpp"

#include <QHeaderView>

#include "app/main_form.hpp"
#include "project/open_topic.hpp"
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
