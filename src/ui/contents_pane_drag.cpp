// Drags in the contents tree: the logic decides, a line shows where a drop would go.
#include <QDrag>
#include <QDragMoveEvent>
#include <QMimeData>
#include <QPainter>

#include "app/main_form.hpp"
#include "contents/contents_drag.hpp"
#include "ui/contents_pane.hpp"
#include "ui/metrics.hpp"
#include "ui/project_drag.hpp"
#include "ui/tree_view_model.hpp"

namespace quorrel {
namespace {

constexpr int kLineWidth = 2;

Qt::DropAction ActionOf(int effect) {
    switch (effect) {
        case drop_effect::kCopy:
            return Qt::CopyAction;
        case drop_effect::kMove:
            return Qt::MoveAction;
        default:
            return Qt::IgnoreAction;
    }
}

/// Accepts the event with the effect, or refuses it.
void Answer(QDropEvent* event, int effect) {
    event->setDropAction(ActionOf(effect));
    event->setAccepted(effect != drop_effect::kNone);
}

/// The item under the pointer, so that one sees what one holds.
QPixmap PictureOf(const QModelIndex& index, const QTreeView& tree) {
    const QRect row(QPoint(0, 0), tree.visualRect(index).size().boundedTo(QSize(240, 64)));
    QPixmap picture(row.size() * tree.devicePixelRatioF());
    picture.setDevicePixelRatio(tree.devicePixelRatioF());
    picture.fill(Qt::transparent);
    QPainter painter(&picture);
    painter.setOpacity(0.8);
    const int side = tree.iconSize().isValid() ? tree.iconSize().width() : 16;
    const QIcon icon = index.data(Qt::DecorationRole).value<QIcon>();
    icon.paint(&painter, QRect(0, 0, side, row.height()));
    painter.setPen(tree.palette().color(QPalette::Text));
    painter.drawText(row.adjusted(side + 4, 0, 0, 0), Qt::AlignVCenter | Qt::TextSingleLine,
                     index.data().toString());
    return picture;
}

}  // namespace

void ContentsPane::startDrag(Qt::DropActions) {
    Tree1_OLEStartDrag(main_);
    if (const TreeNode* node = main_.contents.drag_node) {
        auto* item = new QMimeData;
        item->setData(kProjectItemMime, {});
        auto* drag = new QDrag(this);
        drag->setMimeData(item);
        drag->setPixmap(PictureOf(model_->IndexOf(node), *this));
        drag->setHotSpot({-12, -8});
        run_drag(*drag, Qt::CopyAction | Qt::MoveAction);
    }
    EndDragOver();
    Tree1_OLECompleteDrag(main_);
}

void ContentsPane::dragEnterEvent(QDragEnterEvent* event) {
    if (main_.contents.drag_source == drag_kind::kNone) return event->ignore();
    setState(DraggingState);
    event->accept();
}

void ContentsPane::dragMoveEvent(QDragMoveEvent* event) {
    if (main_.contents.drag_source == drag_kind::kNone) return event->ignore();
    // Scrolls at the edges.
    QTreeView::dragMoveEvent(event);
    const QPoint place = event->position().toPoint();
    WaitToOpen(indexAt(place));
    Answer(event, ShowDropPlace(place));
}

void ContentsPane::dragLeaveEvent(QDragLeaveEvent* event) {
    QTreeView::dragLeaveEvent(event);
    main_.contents.Tree1.SetDropHighlight(nullptr);
    EndDragOver();
}

void ContentsPane::dropEvent(QDropEvent* event) {
    const QPoint place = event->position().toPoint();
    const bool is_ours = main_.contents.drag_source != drag_kind::kNone;
    const int effect = is_ours ? ShowDropPlace(place) : drop_effect::kNone;
    Answer(event, effect);
    if (effect != drop_effect::kNone) {
        Tree1_OLEDragDrop(main_, TwipsOfPixels(place.x()), TwipsOfPixels(place.y()));
    }
    EndDragOver();
}

void ContentsPane::EndDragOver() {
    stopAutoScroll();
    until_open_.stop();
    waiting_over_ = QModelIndex();
    setState(NoState);
    HideDropPlace();
}

int ContentsPane::ShowDropPlace(QPoint place) {
    const double x = TwipsOfPixels(place.x());
    const double y = TwipsOfPixels(place.y());
    const int effect = Tree1_OLEDragOver(main_, x, y);
    HideDropPlace();
    if (effect == drop_effect::kNone) return effect;
    const QModelIndex target = model_->IndexOf(main_.contents.Tree1.DropHighlight());
    const QRect row = visualRect(target);
    // Behind a book is behind all that is in it.
    const QModelIndex above = target.isValid()
                                  ? LastShownBelow(target)
                                  : LastShownBelow(model_->index(model_->rowCount() - 1, 0));
    const bool is_before = target.isValid() && DropsBefore(main_, x, y);
    // The line above the first row is inside of the view as well.
    const int height = is_before ? qMax(kLineWidth, row.top()) : visualRect(above).bottom() + 1;
    const int left = target.isValid() ? row.left() : visualRect(model_->index(0, 0)).left();
    drop_line_ = QLine(left, height, viewport()->width() - 2 * kLineWidth, height);
    viewport()->update();
    return effect;
}

void ContentsPane::HideDropPlace() {
    drop_line_ = QLine();
    viewport()->update();
}

void ContentsPane::WaitToOpen(const QModelIndex& index) {
    if (index == waiting_over_) return;
    waiting_over_ = index;
    constexpr int kUntilOpen = 800;
    const bool can_open = model_->rowCount(index) > 0 && !isExpanded(index);
    if (index.isValid() && can_open) {
        until_open_.start(kUntilOpen);
    } else {
        until_open_.stop();
    }
}

QModelIndex ContentsPane::LastShownBelow(QModelIndex index) const {
    while (isExpanded(index) && model_->rowCount(index) > 0) {
        index = model_->index(model_->rowCount(index) - 1, 0, index);
    }
    return index;
}

void ContentsPane::paintEvent(QPaintEvent* event) {
    QTreeView::paintEvent(event);
    if (drop_line_.isNull()) return;
    QPainter painter(viewport());
    painter.setRenderHint(QPainter::Antialiasing);
    painter.setPen(QPen(palette().color(QPalette::Highlight), kLineWidth));
    painter.drawLine(drop_line_);
    painter.setBrush(palette().base());
    constexpr int kRing = 3;
    painter.drawEllipse(drop_line_.p1(), kRing, kRing);
}

}  // namespace quorrel
