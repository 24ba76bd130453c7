// Pictures of commands, by the desktop's theme.
#pragma once

#include <QIcon>

namespace quorrel {

/// The theme's icon, pale where its command is disabled. The style's own way makes such an icon
/// grey, which on a dark ground looks like one that can be used.
[[nodiscard]] QIcon ThemeIcon(const QString& name);

}  // namespace quorrel
