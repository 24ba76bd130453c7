// Printing what a view of the web engine shows.
#pragma once

class QWebEngineView;

namespace quorrel {

/// Asks for the printer and prints the page. Returns before the engine is done with it.
void PrintView(QWebEngineView& view);

}  // namespace quorrel
