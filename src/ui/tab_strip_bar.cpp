#include "ui/tab_strip_bar.hpp"

#include <QProxyStyle>
#include <QSignalBlocker>

#include "platform/controls/strips.hpp"
#include "ui/listen.hpp"
#include "ui/qt_text.hpp"

namespace quorrel {

namespace {

/// Narrower tabs than the style would have: seven captions are to fit beside the lists.
class NarrowTabs : public QProxyStyle {
  public:
    int pixelMetric(PixelMetric metric, const QStyleOption* option,
                    const QWidget* widget) const override {
        constexpr int kBothSides = 14;
        if (metric == PM_TabBarTabHSpace) return kBothSides;
        return QProxyStyle::pixelMetric(metric, option, widget);
    }
};

}  // namespace

TabStripBar::TabStripBar(TabStrip& strip, const QString& name) : strip_(strip) {
    setObjectName(name);
    auto* style = new NarrowTabs;
    style->setParent(this);
    setStyle(style);
    setDocumentMode(true);
    setExpanding(false);
    setDrawBase(false);
    setUsesScrollButtons(true);
    setElideMode(Qt::ElideNone);
    for (int i = 1; i <= strip_.Count(); ++i) addTab(QString());
    FollowStrip();
    connect(this, &QTabBar::currentChanged, this,
            [this](int tab) { strip_.SelectedIndex = tab + 1; });
    Listen(strip_.changed, this, [this] { FollowStrip(); });
}

void TabStripBar::SetHeight(int pixels) {
    if (height_ == pixels) return;
    height_ = pixels;
    setFixedHeight(pixels);
    // Makes the base class lay out its tabs anew.
    setIconSize(iconSize() == QSize(16, 16) ? QSize(15, 15) : QSize(16, 16));
}

void TabStripBar::Step(int direction) {
    setCurrentIndex((currentIndex() + direction + count()) % count());
}

QSize TabStripBar::tabSizeHint(int index) const {
    const QSize hint = QTabBar::tabSizeHint(index);
    return height_ > 0 ? QSize(hint.width(), height_) : hint;
}

void TabStripBar::FollowStrip() {
    const QSignalBlocker silent(this);
    for (int i = 1; i <= strip_.Count(); ++i) {
        setTabText(i - 1, WithoutMnemonics(ToQt(strip_.TabCaption(i))));
    }
    setCurrentIndex(strip_.SelectedIndex() - 1);
    setEnabled(strip_.Enabled());
}

}  // namespace quorrel
