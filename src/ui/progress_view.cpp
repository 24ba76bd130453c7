#include "ui/progress_view.hpp"

#include <algorithm>

#include "platform/controls/strips.hpp"
#include "ui/listen.hpp"

namespace quorrel {

ProgressView::ProgressView(ProgressBar& model, const QString& name, int patience, QWidget* parent)
    : QProgressBar(parent), model_(model), patience_(patience) {
    setObjectName(name);
    setAccessibleName("Progress");
    hide();
    Listen(model_.changed, this, [this] { Follow(); });
}

void ProgressView::Follow() {
    if (!model_.Visible()) {
        running_.invalidate();
        return hide();
    }
    if (!running_.isValid()) running_.start();
    if (running_.elapsed() < patience_) return;
    const int percent = 100 * model_.Value() / std::max(1, model_.Max());
    if (isVisible() && percent == value()) return;
    setValue(percent);
    show();
    raise();
    parentWidget()->repaint();
}

}  // namespace quorrel
