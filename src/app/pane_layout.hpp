// Where the panes of the main window stand. Plain rules on rectangles: who shows the window asks
// them and places its widgets accordingly.
#pragma once

namespace quorrel {

/// In twips, 1440 to the inch, from the inner top left corner of the window.
struct PaneRect {
    double left = 0;
    double top = 0;
    double width = 0;
    double height = 0;

    [[nodiscard]] double Right() const { return left + width; }
    [[nodiscard]] double Bottom() const { return top + height; }
    bool operator==(const PaneRect&) const = default;
};

/// The designed sizes.
namespace pane_size {
inline constexpr double kSplit = 4500;        // the split of a window that nobody has arranged
inline constexpr double kSplitterWidth = 40;  // of the grip between the sides
inline constexpr double kProgressWidth = 3600;
inline constexpr double kProgressHeight = 375;
inline constexpr double kTOCEditHeight = 3000;
inline constexpr double kDocEditHeight = 3000;
}  // namespace pane_size

struct PaneLayout {
    // What the window tells before Form_Resize.
    double inner_width = 0;
    double strips_top = 0;  // of both tab strips, below the tool bars
    double status_top = 0;  // of StatusBar1

    PaneRect TabStrip1{0, 0, pane_size::kSplit, 0};
    PaneRect TabStrip2;
    PaneRect imgSplitter{pane_size::kSplit, 0, pane_size::kSplitterWidth, 0};
    PaneRect picSplitter = imgSplitter;
    PaneRect DHTMLEdit1, Source1, WebBrowser1, PictureProperties;
    PaneRect ProgressReport{0, 0, pane_size::kProgressWidth, pane_size::kProgressHeight};
    PaneRect PictureTOCEdit{0, 0, 0, pane_size::kTOCEditHeight};
    PaneRect PictureDocEdit{0, 0, 0, pane_size::kDocEditHeight};
    PaneRect PictureBackground;
    PaneRect ListTopics, Tree1, ListKeywords, TreeDoc;

    bool is_dragging = false;  // picSplitter is visible
    double kept_left = 0;      // where the split comes back to when the pane is not expanded
};

/// The split of a window that is shown for the first time; Form_Resize follows.
void StartWithSplit(PaneLayout& layout, double left);

/// Lays out both sides for a split at `X`, which stays 1500 off both edges of the window. `tab`
/// is that of TabStrip2, as in the routines below.
void SizeControls(PaneLayout& layout, double X, int tab);

/// Lays out the window for its new size. Not to be run for a minimised window, which leaves
/// everything as it stands.
void Form_Resize(PaneLayout& layout, int tab);

// The drag of the split. The bar goes up to 500 to the edges of the window, though the split
// itself does not follow that far.
void imgSplitter_MouseDown(PaneLayout& layout);
/// `X` counts from the left of imgSplitter.
void imgSplitter_MouseMove(PaneLayout& layout, double X);
void imgSplitter_MouseUp(PaneLayout& layout, int tab);

/// Gives the right side the whole width, or takes it back.
void ExpandPane(PaneLayout& layout, bool is_expanded, int tab);

/// Tree1 on the right side with PictureTOCEdit below it on the tab "Organize TOC", on the left
/// side on any other.
void PlaceContentsView(PaneLayout& layout, int tab);
/// TreeDoc with PictureDocEdit below it; on the tab "Document Wizard" only.
void PlaceOutlineView(PaneLayout& layout, int tab);

}  // namespace quorrel
