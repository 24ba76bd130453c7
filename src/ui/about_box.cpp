#include "ui/about_box.hpp"

#include <QIcon>
#include <QMessageBox>

#include "app/main_form.hpp"
#include "ui/qt_text.hpp"

namespace quorrel {

void ShowAbout(const MainForm& main, QWidget* parent) {
    QMessageBox box(parent);
    box.setObjectName("FormAbout");
    box.setWindowTitle("About Quorrel");
    box.setIconPixmap(QIcon(":/quorrel/icons/quorrel.svg").pixmap(64, 64));
    box.setTextFormat(Qt::PlainText);
    box.setText(ToQt(main.settings.APP_NAME) + "\nVersion " QUORREL_VERSION);
    box.setInformativeText("A tool for writing help systems.");
    box.setStandardButtons(QMessageBox::Ok);
    box.exec();
}

}  // namespace quorrel
