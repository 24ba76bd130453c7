// All commands of the main window as data: the menus with their entries, the buttons of the tool
// bars. The window builds its widgets from these tables and gives each the name that it has here.
// How a command stands at the moment is in its model (EntryOf in commands.hpp).
#pragma once

#include <span>
#include <string_view>

namespace quorrel {

struct MainForm;

using Routine = void (*)(MainForm&);

/// An entry of a menu. Entries of a control array have their index behind the name, as "EditSub3".
/// An entry with the name of a menu opens that menu.
struct Command {
    std::string_view name;
    std::string_view caption;       // as designed, "&" before the letter of the access key
    Routine run = nullptr;          // null: there is no such command in this version
    std::string_view shortcut{};    // the portable text of the key, as "Ctrl+S"
    std::string_view icon{};        // a name of the icon theme
    std::string_view status_tip{};  // one sentence; shown through StatusTip
    bool is_checkable = false;
};

/// The caption of a line between entries.
inline constexpr std::string_view kSeparator = "-";

enum class MenuPlace {
    kBar,
    kSubmenu,  // of the entry that has its name
    kContext,
    kKeys,  // shown nowhere: its entries are reached by their keys
};

struct Menu {
    std::string_view name;
    std::string_view caption;
    MenuPlace place;
    std::span<const Command> entries;
    Routine opening = nullptr;  // sets the states of the entries; OpenMenu runs it
};

/// A button of a tool bar.
struct ToolButton {
    std::string_view key;  // also the name of its model
    std::string_view tool_tip;
    Routine run;
    std::string_view icon;
    std::string_view shortcut{};  // where no menu entry has the same command
    bool is_checkable = false;
};

/// All menus; those of the bar in their order.
[[nodiscard]] std::span<const Menu> Menus();
/// The buttons of tbToolBar and of Toolbar1, in order.
[[nodiscard]] std::span<const ToolButton> ToolBarButtons();
[[nodiscard]] std::span<const ToolButton> FormatBarButtons();

/// Null where there is none of the name.
[[nodiscard]] const Menu* FindMenu(std::string_view name);
[[nodiscard]] const Command* FindCommand(std::string_view name);
/// The menu that holds the entry, which must be one of FindCommand.
[[nodiscard]] const Menu& MenuOf(const Command& command);
/// A button of either bar.
[[nodiscard]] const ToolButton* FindButton(std::string_view key);

/// False for an entry or a button whose command this version does not have; it is shown disabled
/// whatever happens. True for all other names.
[[nodiscard]] bool IsAvailable(std::string_view name);

/// What the status bar says of an entry.
[[nodiscard]] std::string_view StatusTip(const Command& command);

}  // namespace quorrel
