#include "ui/print_view.hpp"

#include <QPointer>
#include <QPrintDialog>
#include <QPrinter>
#include <QWebEngineView>

#include <memory>

namespace quorrel {

void PrintView(QWebEngineView& view) {
    const QPointer<QWebEngineView> shown(&view);
    const auto printer = std::make_shared<QPrinter>(QPrinter::HighResolution);
    QPrintDialog dialog(printer.get(), &view);
    dialog.setObjectName("PrintDialog");
    if (dialog.exec() != QDialog::Accepted || shown.isNull()) return;
    // The printer must live until the engine is done with it.
    QObject::connect(
        &view, &QWebEngineView::printFinished, &view, [printer](bool) {}, Qt::SingleShotConnection);
    view.print(printer.get());
}

}  // namespace quorrel
