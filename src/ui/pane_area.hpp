// The space between the tool bars and the status bar: both tab strips and all panes, each where
// the logic's rectangles say and shown while the logic shows it. No layout of the toolkit's takes
// part.
#pragma once

#include <QWidget>

#include <string_view>
#include <vector>

#include "app/pane_layout.hpp"

namespace quorrel {

struct MainForm;
class SplitGrip;
class TabStripBar;

class PaneArea : public QWidget {
    Q_OBJECT
  public:
    explicit PaneArea(MainForm& main);

    /// Takes a pane. `name` is that of its control, which tells whether it is visible.
    void Add(std::string_view name, QWidget* pane, PaneRect PaneLayout::*place);

    /// The text in place of the surface where topics are edited in a program of the author's
    /// choice.
    void AddExternalEditorLabel();

    /// The place of the split, to be remembered between runs.
    [[nodiscard]] int SplitInPixels() const;
    /// Puts the split there, as far as the window's width lets it.
    void StartWithSplitAt(int pixels);

    [[nodiscard]] TabStripBar& LeftTabs() { return *left_tabs_; }
    [[nodiscard]] TabStripBar& RightTabs() { return *right_tabs_; }

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    struct Pane {
        QWidget* widget;
        PaneRect PaneLayout::*place;
    };

    void MakeTabs();
    void MakeSplitter();
    /// Tells the rectangles the size of the window.
    void Resize();
    void Apply();
    [[nodiscard]] double PixelsPerTwip() const;
    [[nodiscard]] QRect Pixels(const PaneRect& rect) const;
    [[nodiscard]] int RightTab() const;

    MainForm& main_;
    PaneLayout& layout_;
    TabStripBar* left_tabs_;
    TabStripBar* right_tabs_;
    SplitGrip* grip_;
    QWidget* bar_;
    std::vector<Pane> panes_;
};

}  // namespace quorrel
