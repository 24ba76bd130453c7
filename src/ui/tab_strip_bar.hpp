// The row of tabs above one side of the window.
#pragma once

#include <QTabBar>

namespace quorrel {

class TabStrip;

class TabStripBar : public QTabBar {
    Q_OBJECT
  public:
    TabStripBar(TabStrip& strip, const QString& name);

    /// The tabs take exactly this height, since the panes begin right below it.
    void SetHeight(int pixels);
    /// Goes to the next tab, or for -1 to the one before; behind the last comes the first.
    void Step(int direction);

  protected:
    [[nodiscard]] QSize tabSizeHint(int index) const override;

  private:
    void FollowStrip();

    TabStrip& strip_;
    int height_ = 0;
};

}  // namespace quorrel
