// The control models of the main window that are not tables or trees of the project.
#pragma once

#include <array>
#include <map>
#include <string>
#include <string_view>

#include "app/settings_state.hpp"
#include "platform/controls/combo_box.hpp"
#include "platform/controls/control.hpp"
#include "platform/controls/strips.hpp"

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

struct WindowControls {
    Control window;  // Caption, Visible
    TabStrip TabStrip1{{"Contents", "Topics", "Index"}};
    TabStrip TabStrip2{{"Normal", "Topic Properties", "HTML Source", "Preview/Test", "Organize TOC",
                        "Topic Report", "Document Wizard"}};
    StatusBar StatusBar1;
    ComboBox FontCombo, FontSizeCombo, ComboStyle;
    ComboBox ComboStatus;
    TextBox TextNotes;
    TextBox EditTitle, EditAlias, EditInteger;
    ComboBox ListKeys;  // the topic's keywords as the properties page shows them
    Control CommandEdit, CommandDelete;
    Control CommandNote;
    Control Command3;
    Control LabelExtEditor;

    std::array<MenuEntry, RecentProjects::kInMenu> recent;
    MenuEntry fileexitsep;

    /// The further menu entries, tool buttons and fields, by their names; one that is mentioned
    /// for the first time is made.
    MenuEntry& Named(std::string_view name) {
        const auto found = named_.find(name);
        if (found != named_.end()) return found->second;
        return named_.try_emplace(std::string(name)).first->second;
    }

  private:
    std::map<std::string, MenuEntry, std::less<>> named_;
};

}  // namespace quorrel
