// The buttons of the formatting tool bar and the surface's commands behind them.
#pragma once

#include <array>
#include <string_view>

#include "platform/surface_commands.hpp"

namespace quorrel {

struct FormatButton {
    std::string_view key;
    int command;
};

inline constexpr std::array<FormatButton, 11> kFormatButtons = {{
    {"Bold", surface_command::DECMD_BOLD},
    {"Italic", surface_command::DECMD_ITALIC},
    {"Underline", surface_command::DECMD_UNDERLINE},
    {"Numbers", surface_command::DECMD_ORDERLIST},
    {"Bullets", surface_command::DECMD_UNORDERLIST},
    {"Outdent", surface_command::DECMD_OUTDENT},
    {"Indent", surface_command::DECMD_INDENT},
    {"LeftJustify", surface_command::DECMD_JUSTIFYLEFT},
    {"Center", surface_command::DECMD_JUSTIFYCENTER},
    {"RightJustify", surface_command::DECMD_JUSTIFYRIGHT},
    {"Color", surface_command::DECMD_SETFORECOLOR},
}};

}  // namespace quorrel
