#include "app/command_tables.hpp"

#include <algorithm>

namespace quorrel {
namespace {

const ToolButton* FindIn(std::span<const ToolButton> buttons, std::string_view key) {
    const auto found = std::find_if(buttons.begin(), buttons.end(),
                                    [&](const ToolButton& button) { return button.key == key; });
    return found == buttons.end() ? nullptr : &*found;
}

bool Holds(const Menu& menu, const Command& command) {
    return std::any_of(menu.entries.begin(), menu.entries.end(),
                       [&](const Command& entry) { return &entry == &command; });
}

}  // namespace

const Menu* FindMenu(std::string_view name) {
    const auto menus = Menus();
    const auto found = std::find_if(menus.begin(), menus.end(),
                                    [&](const Menu& menu) { return menu.name == name; });
    return found == menus.end() ? nullptr : &*found;
}

const Command* FindCommand(std::string_view name) {
    for (const Menu& menu : Menus()) {
        for (const Command& command : menu.entries) {
            if (command.name == name) return &command;
        }
    }
    return nullptr;
}

const Menu& MenuOf(const Command& command) {
    const auto menus = Menus();
    return *std::find_if(menus.begin(), menus.end(),
                         [&](const Menu& menu) { return Holds(menu, command); });
}

const ToolButton* FindButton(std::string_view key) {
    const ToolButton* button = FindIn(ToolBarButtons(), key);
    return button != nullptr ? button : FindIn(FormatBarButtons(), key);
}

bool IsAvailable(std::string_view name) {
    if (const ToolButton* button = FindButton(name)) return button->run != nullptr;
    if (FindMenu(name) != nullptr) return true;
    const Command* command = FindCommand(name);
    return command == nullptr || command->run != nullptr;
}

std::string_view StatusTip(const Command& command) {
    return IsAvailable(command.name) ? command.status_tip : "Not available yet.";
}

}  // namespace quorrel
