#include "ui/scrolled_dialog.hpp"

#include <QApplication>
#include <QDialog>
#include <QGridLayout>
#include <QLabel>
#include <QMessageBox>
#include <QScreen>
#include <QScrollArea>
#include <QScrollBar>
#include <QVBoxLayout>

namespace quorrel {
namespace {

/// What a window manager puts around a window, in pixels.
constexpr QSize kFrame(16, 48);

class Scrolled : public QScrollArea {
  public:
    Scrolled() {
        setFrameShape(QFrame::NoFrame);
        setWidgetResizable(true);
        // A label's key goes to a field that may be out of sight.
        connect(qApp, &QApplication::focusChanged, this, [this](QWidget*, QWidget* now) {
            if (now != nullptr && isAncestorOf(now)) ensureWidgetVisible(now, 8, 8);
        });
    }
    QSize sizeHint() const override { return widget()->sizeHint(); }
    QSize minimumSizeHint() const override {
        constexpr int kLeast = 120;
        const int bar = verticalScrollBar()->sizeHint().width();
        const QSize needed = widget()->minimumSizeHint() + QSize(bar, 0);
        const QSize room = screen()->availableSize() - kFrame * 2;
        return {qMin(needed.width(), room.width()), qMin(needed.height(), kLeast)};
    }
};

}  // namespace

void ScrollAllBut(QWidget* buttons, QDialog& dialog) {
    QLayout* content = dialog.layout();
    const QMargins margins = content->contentsMargins();
    content->removeWidget(buttons);
    auto* body = new QWidget;
    body->setLayout(content);
    content->setContentsMargins(0, 0, 0, 0);
    auto* area = new Scrolled;
    area->setWidget(body);
    auto* all = new QVBoxLayout(&dialog);
    all->setContentsMargins(margins);
    all->addWidget(area, 1);
    all->addWidget(buttons);
}

QSize FittingSize(const QWidget& window, QSize size) {
    return size.boundedTo(window.screen()->availableSize() - kFrame);
}

void ScrollLongText(QMessageBox& box) {
    auto* label = box.findChild<QLabel*>("qt_msgbox_label");
    auto* grid = qobject_cast<QGridLayout*>(box.layout());
    if (label == nullptr || grid == nullptr) return;
    const QSize room = FittingSize(box, box.screen()->availableSize()) * 0.6;
    const QFontMetrics metrics = box.fontMetrics();
    const QRect text =
        metrics.boundingRect(QRect(0, 0, room.width(), 0), Qt::TextWordWrap, box.text());
    if (text.height() <= room.height()) return;
    int row = 0, column = 0, rows = 0, columns = 0;
    grid->getItemPosition(grid->indexOf(label), &row, &column, &rows, &columns);
    grid->removeWidget(label);
    label->hide();
    auto* shown = new QLabel(box.text());
    shown->setTextFormat(Qt::PlainText);
    shown->setWordWrap(true);
    shown->setAlignment(Qt::AlignTop | Qt::AlignLeft);
    shown->setTextInteractionFlags(Qt::TextBrowserInteraction);
    auto* area = new QScrollArea;
    area->setObjectName("MessageText");
    area->setFrameShape(QFrame::NoFrame);
    area->setWidgetResizable(true);
    area->setWidget(shown);
    area->setFixedSize(room);
    grid->addWidget(area, row, column, rows, columns);
}

}  // namespace quorrel
