#include "app/pane_layout.hpp"

#include <algorithm>

#include "app/window_tabs.hpp"

namespace quorrel {
namespace {

constexpr double kSplitLimit = 1500;  // from both edges
constexpr double kDragLimit = 500;
constexpr double kInset = 50;  // of a pane in its tab strip, on either side
constexpr double kTabsHeight = 350;

/// The limits in this order: in a window too narrow for both the right one holds.
double Limited(double x, double limit, double inner_width) {
    if (x < limit) x = limit;
    if (x > inner_width - limit) x = inner_width - limit;
    return x;
}

double NotNegative(double length) {
    return std::max(length, 0.0);
}

void InsetHorizontally(PaneRect& pane, const PaneRect& outer) {
    pane.left = outer.left + kInset;
    pane.width = NotNegative(outer.width - 2 * kInset);
}

void InsetVertically(PaneRect& pane, const PaneRect& strip) {
    pane.top = strip.top + kTabsHeight;
    pane.height = NotNegative(strip.Bottom() - pane.top);
}

void TakeColumn(PaneRect& pane, const PaneRect& other) {
    pane.left = other.left;
    pane.width = other.width;
}

/// The tree in the place of Source1, less the panel below it.
void PlaceAbove(PaneRect& tree, PaneRect& panel, const PaneRect& source) {
    tree.left = source.left;
    tree.top = source.top;
    tree.width = source.width;
    tree.height = NotNegative(source.height - panel.height);
    panel.top = tree.Bottom();
    InsetHorizontally(panel, source);
}

/// What both a moved split and a new size of the window bring about, once the strips, DHTMLEdit1
/// and ListTopics stand.
void FollowStrips(PaneLayout& layout, int tab) {
    layout.Source1 = layout.DHTMLEdit1;
    layout.WebBrowser1 = layout.Source1;
    const PaneRect& browser = layout.WebBrowser1;
    PaneRect& progress = layout.ProgressReport;
    progress.left = browser.left + (browser.width - progress.width) / 2;
    progress.top = browser.top + (browser.height - progress.height) / 2;
    layout.PictureProperties = layout.Source1;
    const bool is_organizing = tab == right_tab::kOrganizeTOC;
    TakeColumn(layout.Tree1, is_organizing ? layout.Source1 : layout.ListTopics);
    TakeColumn(layout.ListKeywords, layout.ListTopics);
    TakeColumn(layout.PictureTOCEdit, layout.Source1);
    PlaceOutlineView(layout, tab);
}

}  // namespace

void StartWithSplit(PaneLayout& layout, double left) {
    layout.TabStrip1.width = left;
    layout.imgSplitter.left = left;
    layout.picSplitter.left = left;
}

void SizeControls(PaneLayout& layout, double X, int tab) {
    X = Limited(X, kSplitLimit, layout.inner_width);
    constexpr double kGap = 40;
    constexpr double kRest = 140;
    layout.TabStrip1.width = NotNegative(X);
    layout.imgSplitter.left = X;
    layout.TabStrip2.left = X + kGap;
    layout.TabStrip2.width = NotNegative(layout.inner_width - (layout.TabStrip1.width + kRest));
    InsetHorizontally(layout.DHTMLEdit1, layout.TabStrip2);
    InsetHorizontally(layout.ListTopics, layout.TabStrip1);
    FollowStrips(layout, tab);
}

void Form_Resize(PaneLayout& layout, int tab) {
    constexpr double kLeft = 5;
    constexpr double kMargin = 100;
    PaneRect& left = layout.TabStrip1;
    PaneRect& right = layout.TabStrip2;
    left.left = kLeft;
    left.top = layout.strips_top;
    left.height = NotNegative(layout.status_top - left.top);
    layout.imgSplitter.left = left.Right() + 1;
    layout.imgSplitter.top = left.top;
    layout.imgSplitter.height = left.height;
    right.left = layout.imgSplitter.left;
    right.width = NotNegative(layout.inner_width - kMargin - right.left);
    right.top = left.top;
    right.height = left.height;
    layout.PictureBackground = {0, left.top, layout.inner_width + kMargin, left.height};

    InsetHorizontally(layout.DHTMLEdit1, right);
    InsetVertically(layout.DHTMLEdit1, right);
    InsetHorizontally(layout.ListTopics, left);
    InsetVertically(layout.ListTopics, left);
    layout.ListKeywords = layout.ListTopics;
    FollowStrips(layout, tab);
    PlaceContentsView(layout, tab);
}

void imgSplitter_MouseDown(PaneLayout& layout) {
    layout.picSplitter = layout.imgSplitter;
    layout.is_dragging = true;
}

void imgSplitter_MouseMove(PaneLayout& layout, double X) {
    if (!layout.is_dragging) return;
    layout.picSplitter.left = Limited(layout.imgSplitter.left + X, kDragLimit, layout.inner_width);
}

void imgSplitter_MouseUp(PaneLayout& layout, int tab) {
    SizeControls(layout, layout.picSplitter.left, tab);
    layout.is_dragging = false;
}

void ExpandPane(PaneLayout& layout, bool is_expanded, int tab) {
    if (is_expanded) layout.kept_left = layout.picSplitter.left;
    layout.picSplitter.left = is_expanded ? 0 : layout.kept_left;
    SizeControls(layout, layout.picSplitter.left, tab);
}

void PlaceContentsView(PaneLayout& layout, int tab) {
    if (tab == right_tab::kOrganizeTOC) {
        PlaceAbove(layout.Tree1, layout.PictureTOCEdit, layout.Source1);
    } else {
        layout.Tree1 = layout.ListTopics;
    }
}

void PlaceOutlineView(PaneLayout& layout, int tab) {
    if (tab != right_tab::kDocumentWizard) return;
    PlaceAbove(layout.TreeDoc, layout.PictureDocEdit, layout.Source1);
}

}  // namespace quorrel
