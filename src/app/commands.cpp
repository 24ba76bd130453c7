#include "app/commands.hpp"

#include <string>

#include "app/command_tables.hpp"
#include "app/main_form.hpp"
#include "platform/text.hpp"

namespace quorrel {
namespace {

constexpr std::string_view kRecent = "recent";

/// Whether the user can get at the menu: a menu of the bar is enabled, and a submenu is where the
/// menu is that its entry stands in.
bool IsReachable(MainForm& main, const Menu& menu) {
    if (menu.place == MenuPlace::kBar) return main.window.Named(menu.name).Enabled;
    if (menu.place != MenuPlace::kSubmenu) return true;
    const Command* entry = FindCommand(menu.name);
    return entry != nullptr && IsReachable(main, MenuOf(*entry));
}

void PrepareButtons(MainForm& main, std::span<const ToolButton> buttons) {
    for (const ToolButton& button : buttons) {
        main.window.Named(button.key).ToolTipText = std::string(button.tool_tip);
    }
}

/// What the user calls it.
std::string NameFor(MainForm& main, std::string_view name) {
    const MenuEntry& entry = EntryOf(main.window, name);
    if (FindButton(name) != nullptr) return entry.ToolTipText;
    return ReplaceAll(ReplaceAll(entry.Caption(), "&", ""), "...", "");
}

/// Whether the tab that is shown has it, whatever is selected there.
bool IsOnTab(MainForm& main, std::string_view name) {
    if (!EntryOf(main.window, name).Enabled) return false;
    const Command* command = FindCommand(name);
    return command == nullptr || IsReachable(main, MenuOf(*command));
}

}  // namespace

MenuEntry& EntryOf(WindowControls& window, std::string_view name) {
    if (name == "fileexitsep") return window.fileexitsep;
    const bool is_recent = name.size() == kRecent.size() + 1 && name.starts_with(kRecent);
    if (!is_recent) return window.Named(name);
    return window.recent.at(static_cast<std::size_t>(name.back() - '0'));
}

void PrepareCommands(MainForm& main) {
    WindowControls& window = main.window;
    for (const Menu& menu : Menus()) {
        if (!menu.caption.empty()) window.Named(menu.name).Caption = std::string(menu.caption);
        for (const Command& command : menu.entries) {
            MenuEntry& entry = EntryOf(window, command.name);
            if (!command.caption.empty()) entry.Caption = std::string(command.caption);
            // The recent projects and the block formats get theirs later on.
            entry.Visible = !entry.Caption().empty();
            entry.Enabled = IsAvailable(command.name);
        }
    }
    PrepareButtons(main, ToolBarButtons());
    PrepareButtons(main, FormatBarButtons());
    const EditSurface& surface = main.DHTMLEdit1;
    window.Named("Viewsub0").Checked = surface.ShowBorders();
    window.Named("Viewsub1").Checked = surface.ShowDetails();
    window.Named("showhide").Checked = surface.ShowDetails();
    window.Named("EditSub11").Checked = surface.SnapToGrid();
}

void SetEnabled(MainForm& main, std::string_view name, bool on) {
    EntryOf(main.window, name).Enabled = on && IsAvailable(name);
}

void OpenMenu(MainForm& main, const Menu& menu) {
    if (menu.opening != nullptr) menu.opening(main);
}

void CloseMenu(MainForm& main, const Menu& menu) {
    for (const Command& command : menu.entries) SetEnabled(main, command.name, true);
}

bool RunCommand(MainForm& main, std::string_view name) {
    const Command* command = FindCommand(name);
    if (command == nullptr || command->run == nullptr) return false;
    const Menu& menu = MenuOf(*command);
    if (!IsReachable(main, menu)) return false;
    OpenMenu(main, menu);
    const MenuEntry& entry = EntryOf(main.window, name);
    const bool can_run = entry.Enabled && entry.Visible;
    CloseMenu(main, menu);
    if (!can_run) return false;
    command->run(main);
    return true;
}

std::string WhyNot(MainForm& main, std::string_view name) {
    const std::string shown = NameFor(main, name);
    if (!IsAvailable(name)) return shown + " is not available yet.";
    if (main.project.proj.empty()) return shown + " needs an open project.";
    const TabStrip& tabs = main.window.TabStrip2;
    if (!IsOnTab(main, name)) {
        return shown + " is not available on the tab " + tabs.TabCaption(tabs.SelectedIndex()) +
               ".";
    }
    return shown + " is not available at the moment.";
}

}  // namespace quorrel
