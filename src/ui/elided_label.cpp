#include "ui/elided_label.hpp"

#include <QPainter>
#include <QStyle>

#include "ui/qt_text.hpp"

namespace quorrel {

ElidedLabel::ElidedLabel(const QString& name, Qt::TextElideMode mode, QWidget* parent)
    : QLabel(parent), mode_(mode) {
    setObjectName(name);
    setTextFormat(Qt::PlainText);
    setSizePolicy(QSizePolicy::Ignored, QSizePolicy::Preferred);
}

void ElidedLabel::ShowText(const QString& text) {
    setText(text);
    setToolTip(PlainToolTip(text));
    setAccessibleDescription(text);
}

QSize ElidedLabel::minimumSizeHint() const {
    return {0, QLabel::minimumSizeHint().height()};
}

void ElidedLabel::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    const QRect place = contentsRect();
    const QString shown = fontMetrics().elidedText(text(), mode_, place.width());
    style()->drawItemText(&painter, place, Qt::AlignLeft | Qt::AlignVCenter, palette(), isEnabled(),
                          shown, foregroundRole());
}

}  // namespace quorrel
