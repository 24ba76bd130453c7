// A list of folders with one selected.
#pragma once

#include "platform/controls/control.hpp"

namespace quorrel {

struct FolderBox : Control {
    /// A Windows path without a backslash at its end, but for that of a drive's root.
    Property<std::string> Path{changed};
};

}  // namespace quorrel
