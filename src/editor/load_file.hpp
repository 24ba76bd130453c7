// Bringing a topic onto the surface.
#pragma once

#include <string>
#include <string_view>

namespace quorrel {

struct MainForm;

/// Opens `new_main_path`: its working copy if the topic's row says that there is one, or if the
/// topic itself is missing. The topic or template that is left goes to its working copy or file
/// first; where that fails, or the user does not want to leave a template, it stays open.
void LoadFile(MainForm& main);

/// Whether a template is on the surface.
[[nodiscard]] bool IsTemplateOpen(const MainForm& main);

/// The report's page in the browser pane, at the place of the topic `new_main_path`.
void NavigateToReport(MainForm& main);

}  // namespace quorrel
