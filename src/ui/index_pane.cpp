#include "ui/index_pane.hpp"

#include <QDrag>
#include <QKeyEvent>
#include <QMenu>
#include <QMimeData>

#include <algorithm>

#include "app/main_form.hpp"
#include "contents/index_targets.hpp"
#include "contents/topic_keywords.hpp"
#include "platform/text.hpp"
#include "project/open_topic.hpp"
#include "ui/metrics.hpp"
#include "ui/project_drag.hpp"
#include "ui/qt_text.hpp"

namespace quorrel {
namespace {

QString TargetCaption(const IndexTarget& target) {
    const std::string_view text =
        target.title.empty() ? AfterLast(target.path, '\\') : std::string_view(target.title);
    return WithoutMnemonics(ToQt(FirstCharacters(text, kShownCharacters)));
}

}  // namespace

IndexPane::IndexPane(MainForm& main, QWidget* parent)
    : ReportList(main.keywords.ListKeywords, "ListKeywords", parent), main_(main) {
    setAccessibleName("Index");
    setHeaderHidden(true);
    setDragEnabled(true);
    row_opened = [this](ListRow& row) { OpenKeyword(row); };
}

void IndexPane::keyPressEvent(QKeyEvent* event) {
    if (event->key() == Qt::Key_Delete) delete_pressed_ = true;
    ReportList::keyPressEvent(event);
}

void IndexPane::keyReleaseEvent(QKeyEvent* event) {
    ReportList::keyReleaseEvent(event);
    if (event->key() != Qt::Key_Delete || event->isAutoRepeat() || !delete_pressed_) return;
    delete_pressed_ = false;
    ListView& table = main_.keywords.ListKeywords;
    const ListRow* row = table.SelectedItem();
    const int place = row == nullptr ? 0 : table.PositionOf(*row);
    constexpr int kDeleteCode = 46;
    ListKeywords_KeyUp(main_, kDeleteCode);
    // The next one takes its place, for the keys to go on from there.
    const bool is_gone = place > 0 && table.SelectedItem() == nullptr;
    if (is_gone && table.Count() > 0) table.Select(&table.At(std::min(place, table.Count())));
}

void IndexPane::startDrag(Qt::DropActions) {
    ListKeywords_OLEStartDrag(main_);
    if (main_.contents.drag_list_item != nullptr) {
        auto* item = new QMimeData;
        item->setData(kProjectItemMime, {});
        auto* drag = new QDrag(this);
        drag->setMimeData(item);
        drag->setPixmap(QIcon::fromTheme("tag").pixmap(QSize(16, 16), devicePixelRatioF()));
        run_drag(*drag, Qt::CopyAction);
    }
    ListKeywords_OLECompleteDrag(main_);
}

void IndexPane::OpenKeyword(ListRow& row) {
    ListView& table = main_.keywords.ListKeywords;
    if (IsSeeAlso(row)) {
        if (ListRow* other = SeeAlsoRow(table, row)) {
            table.Select(other);
        } else {
            main_.screen.Beep();
        }
        return;
    }
    const std::vector<IndexTarget> targets =
        IndexTargets(row.SubItems(keyword_cell::IDX_TITLEPATH));
    if (targets.empty()) return main_.screen.Beep();
    if (targets.size() == 1) return OpenTopic(main_, targets.front().path);
    OfferTargets(row);
}

void IndexPane::OfferTargets(const ListRow& row) {
    auto* menu = new QMenu(this);
    menu->setObjectName("targets");
    menu->setAttribute(Qt::WA_DeleteOnClose);
    for (const IndexTarget& target : IndexTargets(row.SubItems(keyword_cell::IDX_TITLEPATH))) {
        menu->addAction(TargetCaption(target), this,
                        [this, path = target.path] { OpenTopic(main_, path); });
    }
    menu->setActiveAction(menu->actions().constFirst());
    const QRect place = visualRect(Rows().IndexOf(&row));
    menu->popup(viewport()->mapToGlobal(place.bottomLeft()));
}

}  // namespace quorrel
