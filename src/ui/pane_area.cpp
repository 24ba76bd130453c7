#include "ui/pane_area.hpp"

#include <QFrame>
#include <QLabel>
#include <QShortcut>

#include <algorithm>
#include <cmath>

#include "app/main_form.hpp"
#include "ui/listen.hpp"
#include "ui/progress_view.hpp"
#include "ui/split_grip.hpp"
#include "ui/tab_strip_bar.hpp"

namespace quorrel {
namespace {

constexpr double kTwipsPerInch = 1440;
/// The panes begin this far below the top of their tab strip.
constexpr double kTabsHeight = 350;
/// On either side of the split, so that the mouse finds it.
constexpr int kGripMargin = 1;

void OnKey(QWidget* window, const QString& key, const std::function<void()>& work) {
    QObject::connect(new QShortcut(QKeySequence(key), window), &QShortcut::activated, window, work);
}

}  // namespace

PaneArea::PaneArea(MainForm& main)
    : main_(main),
      layout_(main.window.panes),
      left_tabs_(new TabStripBar(main.window.TabStrip1, "TabStrip1")),
      right_tabs_(new TabStripBar(main.window.TabStrip2, "TabStrip2")),
      grip_(new SplitGrip(this)),
      bar_(new QFrame(this)) {
    setObjectName("PictureBackground");
    MakeTabs();
    MakeSplitter();
    auto* progress = new ProgressView(main.window.ProgressReport, "ProgressReport", 0, this);
    panes_.push_back({progress, &PaneLayout::ProgressReport});
    Listen(main_.window.panes_changed, this, [this] { Apply(); });
}

void PaneArea::MakeTabs() {
    left_tabs_->setAccessibleName("Lists of the project");
    right_tabs_->setAccessibleName("Views of the topic");
    for (TabStripBar* tabs : {left_tabs_, right_tabs_}) {
        tabs->setParent(this);
        tabs->SetHeight(qRound(kTabsHeight * PixelsPerTwip()));
    }
    for (int i = 1; i <= left_tabs_->count(); ++i) {
        const QString key = "Ctrl+" + QString::number(i);
        left_tabs_->setTabToolTip(i - 1, key);
        OnKey(this, key, [this, i] {
            if (left_tabs_->isEnabled()) left_tabs_->setCurrentIndex(i - 1);
            for (const Pane& pane : panes_) {
                const bool is_list = pane.place == &PaneLayout::ListTopics ||
                                     pane.place == &PaneLayout::ListKeywords ||
                                     pane.place == &PaneLayout::Tree1;
                if (is_list && pane.widget->isVisible()) return pane.widget->setFocus();
            }
        });
    }
    for (int i = 1; i <= right_tabs_->count(); ++i) {
        const QString key = "Alt+" + QString::number(i);
        right_tabs_->setTabToolTip(i - 1, i == right_tab::kPreview ? key + ", F5" : key);
        OnKey(this, key, [this, i] { right_tabs_->setCurrentIndex(i - 1); });
    }
    OnKey(this, "Ctrl+Tab", [this] { right_tabs_->Step(1); });
    OnKey(this, "Ctrl+Shift+Tab", [this] { right_tabs_->Step(-1); });
}

void PaneArea::MakeSplitter() {
    bar_->setObjectName("picSplitter");
    bar_->setAutoFillBackground(true);
    bar_->setBackgroundRole(QPalette::Highlight);
    bar_->hide();
    grip_->pressed = [this] {
        imgSplitter_MouseDown(layout_);
        Apply();
    };
    grip_->moved = [this](int x) {
        imgSplitter_MouseMove(layout_, (x - kGripMargin) / PixelsPerTwip());
        Apply();
    };
    grip_->released = [this] {
        imgSplitter_MouseUp(layout_, RightTab());
        Apply();
    };
}

void PaneArea::Add(std::string_view name, QWidget* pane, PaneRect PaneLayout::*place) {
    pane->setParent(this);
    panes_.push_back({pane, place});
    Control& control = main_.window.Named(name);
    const auto follow = [pane, &control] { pane->setVisible(control.Visible()); };
    follow();
    Listen(control.changed, pane, follow);
}

void PaneArea::AddExternalEditorLabel() {
    auto* label = new QLabel("Using External Editor", this);
    label->setObjectName("LabelExtEditor");
    label->setAlignment(Qt::AlignCenter);
    label->setAutoFillBackground(true);
    panes_.push_back({label, &PaneLayout::DHTMLEdit1});
    Control& external = main_.window.LabelExtEditor;
    Control& surface = main_.window.Named("DHTMLEdit1");
    const auto follow = [label, &external, &surface] {
        label->setVisible(external.Visible() && surface.Visible());
        label->raise();
    };
    follow();
    Listen(external.changed, label, follow);
    Listen(surface.changed, label, follow);
}

int PaneArea::SplitInPixels() const {
    const bool is_expanded = main_.window.Named("expandpane").Checked;
    const double left = is_expanded ? layout_.kept_left : layout_.TabStrip1.width;
    return qRound(left * PixelsPerTwip());
}

void PaneArea::StartWithSplitAt(int pixels) {
    StartWithSplit(layout_, pixels / PixelsPerTwip());
    Resize();
    // A window that is narrower than it was takes the split no nearer to its edge than a drag.
    SizeControls(layout_, layout_.TabStrip1.width, RightTab());
    Resize();
}

void PaneArea::resizeEvent(QResizeEvent*) {
    if (!window()->isMinimized()) Resize();
}

void PaneArea::Resize() {
    layout_.inner_width = width() / PixelsPerTwip();
    layout_.strips_top = 0;
    layout_.status_top = height() / PixelsPerTwip();
    Form_Resize(layout_, RightTab());
    Apply();
}

void PaneArea::Apply() {
    left_tabs_->setGeometry(Pixels(
        {layout_.TabStrip1.left, layout_.TabStrip1.top, layout_.TabStrip1.width, kTabsHeight}));
    right_tabs_->setGeometry(Pixels(
        {layout_.TabStrip2.left, layout_.TabStrip2.top, layout_.TabStrip2.width, kTabsHeight}));
    for (const Pane& pane : panes_) pane.widget->setGeometry(Pixels(layout_.*pane.place));
    const QMargins margins(kGripMargin, 0, kGripMargin, 0);
    grip_->setGeometry(Pixels(layout_.imgSplitter).marginsAdded(margins));
    grip_->raise();
    bar_->setGeometry(Pixels(layout_.picSplitter).marginsAdded(margins));
    bar_->setVisible(layout_.is_dragging);
    bar_->raise();
}

double PaneArea::PixelsPerTwip() const {
    return logicalDpiX() / kTwipsPerInch;
}

QRect PaneArea::Pixels(const PaneRect& rect) const {
    // By the edges, so that panes that touch in twips touch on the screen.
    const double scale = PixelsPerTwip();
    const QPoint first(qRound(rect.left * scale), qRound(rect.top * scale));
    const QPoint behind(qRound(rect.Right() * scale), qRound(rect.Bottom() * scale));
    return {first, behind - QPoint(1, 1)};
}

int PaneArea::RightTab() const {
    return main_.window.TabStrip2.SelectedIndex();
}

}  // namespace quorrel
