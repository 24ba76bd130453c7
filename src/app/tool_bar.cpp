#include "app/tool_bar.hpp"

#include <initializer_list>

#include "app/command_tables.hpp"
#include "app/commands.hpp"
#include "app/main_form.hpp"
#include "editor/formatting.hpp"

namespace quorrel {
namespace {

using Names = std::initializer_list<std::string_view>;

bool IsOnSurface(const MainForm& main) {
    return main.window.TabStrip2.SelectedIndex() == right_tab::kNormal;
}

void Enable(MainForm& main, Names names, bool on) {
    for (const std::string_view name : names) SetEnabled(main, name, on);
}

void EnableEditMenus(MainForm& main, bool on) {
    Enable(main, {"edit", "View", "insert", "tools", "FormatMain", "table"}, on);
}

void EnableEditCommands(MainForm& main, bool on) {
    WindowControls& window = main.window;
    for (ComboBox* list : {&window.FontCombo, &window.FontSizeCombo, &window.ComboStyle}) {
        list->Enabled = on;
    }
    for (const ToolButton& button : FormatBarButtons()) SetEnabled(main, button.key, on);
    for (const ToolButton& button : ToolBarButtons()) SetEnabled(main, button.key, on);
    main.screen.DoEvents();
}

void UpdateButtons(MainForm& main, int tab) {
    if (main.project.proj.empty()) {
        DisableEditCommands(main);
        Enable(main, {"NewProj", "Open"}, true);
        return;
    }
    if (tab == right_tab::kNormal) {
        EnableEditCommands(main);
        Enable(main, {"GoBack", "Refresh", "Stop"}, false);
        return;
    }
    DisableEditCommands(main);
    Enable(main, {"NewProj", "New", "Open"}, true);
    if (tab == right_tab::kProperties) SetEnabled(main, "Save", true);
    if (tab == right_tab::kSource) SetEnabled(main, "New", false);
    if (tab == right_tab::kPreview) Enable(main, {"GoBack", "Refresh", "Stop"}, true);
}

/// On the tabs "HTML Source" and "Preview/Test" the menus that are not named stay as they were.
void UpdateMenus(MainForm& main, int tab) {
    const bool has_project = !main.project.proj.empty();
    if (!has_project) EnableEditMenus(main, false);
    switch (tab) {
        case right_tab::kNormal:
            SetEnabled(main, "file", true);
            return EnableEditMenus(main, has_project);
        case right_tab::kProperties:
            SetEnabled(main, "file", true);
            return EnableEditMenus(main, false);
        case right_tab::kSource:
            Enable(main, {"file", "edit"}, true);
            return SetEnabled(main, "View", false);
        case right_tab::kPreview:
            return Enable(main, {"file", "edit", "View"}, false);
        default:
            SetEnabled(main, "file", false);
            return EnableEditMenus(main, false);
    }
}

}  // namespace

void tbToolBar_ButtonClick(MainForm& main, std::string_view key) {
    // The command is there, the button is not.
    if (key == "GoFwd") return main.WebBrowser1.Refresh();
    for (const ToolButton& button : ToolBarButtons()) {
        if (button.key == key && button.run != nullptr) return button.run(main);
    }
}

void Toolbar1_ButtonClick(MainForm& main, std::string_view key) {
    for (const ToolButton& button : FormatBarButtons()) {
        if (button.key == key) return button.run(main);
    }
}

void DisableEditCommands(MainForm& main) {
    EnableEditCommands(main, false);
}

void EnableEditCommands(MainForm& main) {
    EnableEditCommands(main, true);
}

void UpdateToolbars(MainForm& main) {
    const int tab = main.window.TabStrip2.SelectedIndex;
    UpdateButtons(main, tab);
    UpdateMenus(main, tab);
}

void Print_Click(MainForm& main) {
    if (!IsOnSurface(main)) return main.Source1.Print();
    main.DHTMLEdit1.SetFocus();
    main.DHTMLEdit1.Print();
}

void Cut_Click(MainForm& main) {
    if (!IsOnSurface(main)) return main.Source1.Cut();
    RunOnSurface(main, surface_command::DECMD_CUT);
}

void Copy_Click(MainForm& main) {
    if (!IsOnSurface(main)) return main.Source1.Copy();
    RunOnSurface(main, surface_command::DECMD_COPY);
}

void Paste_Click(MainForm& main) {
    if (!IsOnSurface(main)) return main.Source1.Paste();
    RunOnSurface(main, surface_command::DECMD_PASTE);
}

void Find_Click(MainForm& main) {
    if (!IsOnSurface(main)) return main.Source1.Find();
    RunOnSurface(main, surface_command::DECMD_FINDTEXT);
}

void GoBack_Click(MainForm& main) {
    main.WebBrowser1.GoBack();
}

void StopBrowser(MainForm& main) {
    main.WebBrowser1.Stop();
}

void DoNothing(MainForm&) {}

void showhide_Click(MainForm& main) {
    const bool on = !main.DHTMLEdit1.ShowDetails();
    main.DHTMLEdit1.SetShowDetails(on);
    main.window.Named("Viewsub1").Checked = on;
    main.window.Named("showhide").Checked = on;
}

}  // namespace quorrel
