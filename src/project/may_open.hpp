// Whether a project can be opened in this run.
#pragma once

#include <string>

namespace quorrel {

struct MainForm;

/// False where the file cannot be read, which is told, or is of the family of the other edition:
/// then its window is offered. Nothing of the open project has changed.
[[nodiscard]] bool MayOpen(MainForm& main, const std::string& proj);

}  // namespace quorrel
