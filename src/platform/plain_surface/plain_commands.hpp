// The commands that work without a screen.
#pragma once

#include <string>

#include "platform/plain_surface/plain_document.hpp"
#include "platform/surface_commands.hpp"

namespace quorrel {

/// A command_status. What needs a look at the page, as the commands of tables and positions do,
/// is not supported.
[[nodiscard]] int PlainCommandStatus(const PlainDocument& document, const std::string& clipboard,
                                     int command);

/// Raises as EditSurface::ExecCommand. A format of characters needs a selected text: at a caret
/// it does nothing.
CommandValue RunPlainCommand(PlainDocument& document, std::string& clipboard, int command,
                             const CommandValue& value);

}  // namespace quorrel
