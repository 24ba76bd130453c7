// The commands of the editing surface by their numbers, and what goes in and out of them.
#pragma once

#include <cstdint>
#include <string>
#include <variant>
#include <vector>

namespace quorrel {

namespace surface_command {
inline constexpr int DECMD_BOLD = 5000;
inline constexpr int DECMD_COPY = 5002;
inline constexpr int DECMD_CUT = 5003;
inline constexpr int DECMD_DELETE = 5004;
inline constexpr int DECMD_DELETECELLS = 5005;
inline constexpr int DECMD_DELETECOLS = 5006;
inline constexpr int DECMD_DELETEROWS = 5007;
inline constexpr int DECMD_FINDTEXT = 5008;
inline constexpr int DECMD_FONT = 5009;
inline constexpr int DECMD_GETBACKCOLOR = 5010;
inline constexpr int DECMD_GETBLOCKFMT = 5011;
inline constexpr int DECMD_GETBLOCKFMTNAMES = 5012;
inline constexpr int DECMD_GETFONTNAME = 5013;
inline constexpr int DECMD_GETFONTSIZE = 5014;
inline constexpr int DECMD_GETFORECOLOR = 5015;
inline constexpr int DECMD_HYPERLINK = 5016;
inline constexpr int DECMD_IMAGE = 5017;
inline constexpr int DECMD_INDENT = 5018;
inline constexpr int DECMD_INSERTCELL = 5019;
inline constexpr int DECMD_INSERTCOL = 5020;
inline constexpr int DECMD_INSERTROW = 5021;
inline constexpr int DECMD_INSERTTABLE = 5022;
inline constexpr int DECMD_ITALIC = 5023;
inline constexpr int DECMD_JUSTIFYCENTER = 5024;
inline constexpr int DECMD_JUSTIFYLEFT = 5025;
inline constexpr int DECMD_JUSTIFYRIGHT = 5026;
inline constexpr int DECMD_LOCK_ELEMENT = 5027;
inline constexpr int DECMD_MAKE_ABSOLUTE = 5028;
inline constexpr int DECMD_MERGECELLS = 5029;
inline constexpr int DECMD_ORDERLIST = 5030;
inline constexpr int DECMD_OUTDENT = 5031;
inline constexpr int DECMD_PASTE = 5032;
inline constexpr int DECMD_REDO = 5033;
inline constexpr int DECMD_REMOVEFORMAT = 5034;
inline constexpr int DECMD_SELECTALL = 5035;
inline constexpr int DECMD_SEND_BACKWARD = 5036;
inline constexpr int DECMD_BRING_FORWARD = 5037;
inline constexpr int DECMD_SEND_BELOW_TEXT = 5038;
inline constexpr int DECMD_BRING_ABOVE_TEXT = 5039;
inline constexpr int DECMD_SEND_TO_BACK = 5040;
inline constexpr int DECMD_BRING_TO_FRONT = 5041;
inline constexpr int DECMD_SETBACKCOLOR = 5042;
inline constexpr int DECMD_SETBLOCKFMT = 5043;
inline constexpr int DECMD_SETFONTNAME = 5044;
inline constexpr int DECMD_SETFONTSIZE = 5045;
inline constexpr int DECMD_SETFORECOLOR = 5046;
inline constexpr int DECMD_SPLITCELL = 5047;
inline constexpr int DECMD_UNDERLINE = 5048;
inline constexpr int DECMD_UNDO = 5049;
inline constexpr int DECMD_UNLINK = 5050;
inline constexpr int DECMD_UNORDERLIST = 5051;
}  // namespace surface_command

/// What QueryStatus answers. Below kEnabled a command is not available.
namespace command_status {
inline constexpr int kNotSupported = 0;
inline constexpr int kDisabled = 1;
inline constexpr int kEnabled = 3;
inline constexpr int kLatched = 7;   // on at the selection, as Bold in bold text
inline constexpr int kNinched = 11;  // on in a part of the selection
}  // namespace command_status

/// Whether a command may ask the user for what it needs.
enum class CommandOption { kDefault = 0, kPromptUser = 1, kDontPromptUser = 2 };

/// What DECMD_INSERTTABLE takes.
struct InsertTableParam {
    int num_rows = 0;
    int num_cols = 0;
    std::string table_attrs;  // attributes of the TABLE tag as text
    std::string cell_attrs;
};

/// The argument or the result of a command: nothing, a text (a name, "#RRGGBB"), a number, the
/// names of the block formats, a table.
using CommandValue = std::variant<std::monostate, std::string, std::int64_t,
                                  std::vector<std::string>, InsertTableParam>;

}  // namespace quorrel
