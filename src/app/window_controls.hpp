// The control models of the main window that are not tables or trees of the project.
#pragma once

#include <array>
#include <functional>
#include <map>
#include <string>
#include <string_view>

#include "app/pane_layout.hpp"
#include "app/settings_state.hpp"
#include "app/window_tabs.hpp"
#include "platform/controls/combo_box.hpp"
#include "platform/controls/control.hpp"
#include "platform/controls/list_box.hpp"
#include "platform/controls/strips.hpp"

namespace quorrel {

struct WindowControls {
    Control window;  // Caption, Visible
    PaneLayout panes;
    Signal<> panes_changed;
    TabStrip TabStrip1{{"Contents", "Topics", "Index"}};
    TabStrip TabStrip2{{"Normal", "Topic Properties", "HTML Source", "Preview/Test", "Organize TOC",
                        "Topic Report", "Document Wizard"}};
    StatusBar StatusBar1;
    ProgressBar ProgressReport;
    ProgressBar progress;  // of reading and saving, in the status bar
    ComboBox FontCombo, FontSizeCombo, ComboStyle;
    ComboBox ComboIcon;  // "Default" and the pictures that a contents entry can have
    ComboBox ComboStatus;
    TextBox TextNotes;
    Control CommandNote;
    Control Command3;

    // The properties page.
    TextBox EditTitle, EditAlias, EditInteger;
    Control Label3, Label4;  // of EditAlias and EditInteger
    ListBox ListKeys;        // the topic's keywords, ":" between main key and sub-key
    TextBox EditKeyword, EditSubKey;
    Control Command1;  // adds what stands in the two
    Control CommandEdit, CommandDelete, CommandAddFromIndex, CommandSeeAlso;

    // The panel of the selected contents item.
    TextBox EditTOCText, EditTOCLocation;
    TextComboBox ComboBookmark;
    CheckBox CheckTOCIsBook;
    TextBox EditIcon, EditFrame, EditWindow;
    Control Label8, Label9;  // of EditFrame and EditWindow
    CheckBox CheckMarkNew;
    Control CommandIconList;
    Control LabelExtEditor;

    std::array<MenuEntry, RecentProjects::kInMenu> recent;
    MenuEntry fileexitsep;

    // What only the program that shows the window can do; unset where nobody shows it.
    std::function<void()> close;       // as the user closes the window
    std::function<void()> show_about;  // what the program is
    /// The user guide at the topic with the identifier, or at its beginning for an empty one.
    std::function<void(std::string_view identifier)> show_help;

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
