// The tabs of the main window's two strips.
#pragma once

namespace quorrel {

/// Tabs of TabStrip1.
namespace left_tab {
inline constexpr int kContents = 1;
inline constexpr int kTopics = 2;
inline constexpr int kIndex = 3;
}  // namespace left_tab

/// Tabs of TabStrip2.
namespace right_tab {
inline constexpr int kNormal = 1;
inline constexpr int kProperties = 2;
inline constexpr int kSource = 3;
inline constexpr int kPreview = 4;
inline constexpr int kOrganizeTOC = 5;
inline constexpr int kReport = 6;
inline constexpr int kDocumentWizard = 7;
}  // namespace right_tab

}  // namespace quorrel
