#include "app/pane_layout.hpp"

#include <gtest/gtest.h>

#include <ostream>

#include "app/window_tabs.hpp"

namespace quorrel {

static void PrintTo(const PaneRect& pane, std::ostream* out) {
    *out << "{" << pane.left << ", " << pane.top << ", " << pane.width << ", " << pane.height
         << "}";
}

namespace {

/// A window 15000 wide with strips from 1000 to 9000.
PaneLayout Window(int tab, double split = 4000) {
    PaneLayout layout;
    layout.inner_width = 15000;
    layout.strips_top = 1000;
    layout.status_top = 9000;
    StartWithSplit(layout, split);
    Form_Resize(layout, tab);
    return layout;
}

TEST(PaneLayout, ANewSizeLaysOutTheWholeWindow) {
    const PaneLayout layout = Window(right_tab::kNormal);
    EXPECT_EQ(layout.TabStrip1, (PaneRect{5, 1000, 4000, 8000}));
    EXPECT_EQ(layout.imgSplitter, (PaneRect{4006, 1000, 40, 8000}));
    EXPECT_EQ(layout.TabStrip2, (PaneRect{4006, 1000, 10894, 8000}));
    EXPECT_EQ(layout.PictureBackground.width, 15100);
    const PaneRect right{4056, 1350, 10794, 7650};
    for (const PaneRect& pane :
         {layout.DHTMLEdit1, layout.Source1, layout.WebBrowser1, layout.PictureProperties}) {
        EXPECT_EQ(pane, right);
    }
    const PaneRect left{55, 1350, 3900, 7650};
    for (const PaneRect& pane : {layout.ListTopics, layout.Tree1, layout.ListKeywords}) {
        EXPECT_EQ(pane, left);
    }
    EXPECT_EQ(layout.ProgressReport,
              (PaneRect{4056 + (10794 - 3600) / 2.0, 1350 + (7650 - 375) / 2.0, 3600, 375}));
}

TEST(PaneLayout, TheSplitKeeps1500OffTheEdges) {
    const std::array<double, 3> cases[] = {
        {15000, 1499, 1500},
        {15000, 7000, 7000},
        {15000, 13500, 13500},
        {15000, 13501, 13500},
        // Too narrow for both limits: the right one is tested last.
        {2500, 2000, 1000},
    };
    for (const auto& [inner_width, wanted, split] : cases) {
        PaneLayout layout = Window(right_tab::kNormal);
        layout.inner_width = inner_width;
        SizeControls(layout, wanted, right_tab::kNormal);
        EXPECT_EQ(layout.TabStrip2, (PaneRect{split + 40, 1000, inner_width - split - 140, 8000}));
        EXPECT_EQ(layout.WebBrowser1,
                  (PaneRect{split + 90, 1350, inner_width - split - 240, 7650}));
        EXPECT_EQ(layout.Tree1, (PaneRect{55, 1350, split - 100, 7650}));
    }
}

TEST(PaneLayout, TheDraggedBarGoesFurtherThanTheSplit) {
    const std::array<double, 3> cases[] = {
        {-9000, 500, 1500}, {-3506, 500, 1500},    {-3000, 1006, 1500},  {0, 4006, 4006},
        {1000, 5006, 5006}, {10000, 14006, 13500}, {20000, 14500, 13500}};
    for (const auto& [x, bar, split] : cases) {
        PaneLayout layout = Window(right_tab::kNormal);
        imgSplitter_MouseMove(layout, x);
        EXPECT_EQ(layout.picSplitter.left, 4000) << "nothing moves before the button is down";
        imgSplitter_MouseDown(layout);
        imgSplitter_MouseMove(layout, x);
        EXPECT_EQ(layout.picSplitter.left, bar) << x;
        EXPECT_EQ(layout.imgSplitter.left, 4006);
        imgSplitter_MouseUp(layout, right_tab::kNormal);
        EXPECT_EQ(layout.imgSplitter.left, split);
    }
}

TEST(PaneLayout, AnExpandedPaneComesBack) {
    PaneLayout layout = Window(right_tab::kNormal);
    for (const bool is_expanded : {true, false}) {
        ExpandPane(layout, is_expanded, right_tab::kNormal);
        EXPECT_EQ(layout.imgSplitter.left, is_expanded ? 1500 : 4000);
    }
}

TEST(PaneLayout, TheTreesStandAboveTheirPanels) {
    const double panel = pane_size::kTOCEditHeight;
    PaneLayout layout = Window(right_tab::kOrganizeTOC);
    EXPECT_EQ(layout.Tree1, (PaneRect{4056, 1350, 10794, 7650 - panel}));
    EXPECT_EQ(layout.PictureTOCEdit, (PaneRect{4106, 9000 - panel, 10694, panel}));
    SizeControls(layout, 6000, right_tab::kOrganizeTOC);
    EXPECT_EQ(layout.Tree1, (PaneRect{6090, 1350, 8760, 7650 - panel})) << "it stays on the right";
    PlaceContentsView(layout, right_tab::kDocumentWizard);
    PlaceOutlineView(layout, right_tab::kDocumentWizard);
    EXPECT_EQ(layout.Tree1, layout.ListTopics);
    EXPECT_EQ(layout.TreeDoc, (PaneRect{6090, 1350, 8760, 7650 - pane_size::kDocEditHeight}));
    EXPECT_EQ(layout.PictureDocEdit.Bottom(), 9000);
    const PaneRect doc = layout.TreeDoc;
    SizeControls(layout, 7000, right_tab::kNormal);
    EXPECT_EQ(layout.TreeDoc, doc) << "it is not shown on that tab";
}

TEST(PaneLayout, AWindowTooSmallHasNoNegativeSizes) {
    PaneLayout layout = Window(right_tab::kOrganizeTOC);
    layout.inner_width = 500;
    layout.status_top = 900;
    Form_Resize(layout, right_tab::kOrganizeTOC);
    SizeControls(layout, 4000, right_tab::kOrganizeTOC);
    for (const PaneRect& pane : {layout.TabStrip1, layout.TabStrip2, layout.DHTMLEdit1,
                                 layout.ListTopics, layout.Tree1, layout.PictureTOCEdit}) {
        EXPECT_GE(pane.width, 0);
        EXPECT_GE(pane.height, 0);
    }
}

}  // namespace
}  // namespace quorrel
