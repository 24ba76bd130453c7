// The filter of a file dialog, from its classic form.
#pragma once

#include <QStringList>

#include <string_view>

namespace quorrel {

/// "Text (*.a)|*.a;*.b|..." as the toolkit's filters. The patterns match whatever the case of a
/// name. One for Windows programs becomes "All files": programs have no ending elsewhere.
[[nodiscard]] QStringList NameFilters(std::string_view classic_filter);

/// The ending, without its dot, that a new file gets where none is typed; empty for any.
[[nodiscard]] QString FirstEnding(std::string_view classic_filter);

}  // namespace quorrel
