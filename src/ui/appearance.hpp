// Icons by the desktop's theme, with a set of its own where it has none.
#pragma once

#include <QPalette>

namespace quorrel {

/// Makes the program's own pictures known. Before anything is shown.
void LoadPictures();

/// Chooses the icon theme where the desktop sets none, by whether the palette is dark.
void ChooseIconTheme(const QPalette& palette);

[[nodiscard]] bool IsDark(const QPalette& palette);

}  // namespace quorrel
