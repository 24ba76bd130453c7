// The surface's commands behind buttons and menu entries. 0 stands for none.
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

/// Of the entries EditSub 0 to 8.
inline constexpr std::array<int, 9> kEditCommands = {
    surface_command::DECMD_UNDO,
    surface_command::DECMD_REDO,
    0,
    surface_command::DECMD_CUT,
    surface_command::DECMD_COPY,
    surface_command::DECMD_PASTE,
    surface_command::DECMD_SELECTALL,
    0,
    surface_command::DECMD_FINDTEXT,
};

/// Of the entries tablesub 0 to 16; the last four open dialogs.
inline constexpr std::array<int, 17> kTableCommands = {
    surface_command::DECMD_INSERTTABLE,
    0,
    surface_command::DECMD_INSERTROW,
    surface_command::DECMD_INSERTCOL,
    surface_command::DECMD_INSERTCELL,
    0,
    surface_command::DECMD_DELETEROWS,
    surface_command::DECMD_DELETECOLS,
    surface_command::DECMD_DELETECELLS,
    0,
    surface_command::DECMD_MERGECELLS,
    surface_command::DECMD_SPLITCELL,
    0,
    0,
    0,
    0,
    0,
};

/// Of the entries D2DSub 0 to 10.
inline constexpr std::array<int, 11> kPositionCommands = {
    surface_command::DECMD_BRING_TO_FRONT,
    surface_command::DECMD_SEND_TO_BACK,
    0,
    surface_command::DECMD_BRING_FORWARD,
    surface_command::DECMD_SEND_BACKWARD,
    surface_command::DECMD_BRING_ABOVE_TEXT,
    surface_command::DECMD_SEND_BELOW_TEXT,
    0,
    surface_command::DECMD_LOCK_ELEMENT,
    0,
    surface_command::DECMD_MAKE_ABSOLUTE,
};
inline constexpr int kLockEntry = 8;
inline constexpr int kPositionEntry = 10;

}  // namespace quorrel
