// The script that edits a page, for one load.
#pragma once

#include <QJsonObject>
#include <QWebEngineScript>

namespace quorrel {

/// `setup` is what the script is told; see src/ui/surface/page.js.
[[nodiscard]] QWebEngineScript SurfaceScript(const QJsonObject& setup);

}  // namespace quorrel
