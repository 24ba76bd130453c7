#include "ui/splash_dialog.hpp"

#include <QGuiApplication>
#include <QPainter>
#include <QScreen>
#include <QSvgRenderer>
#include <QTimer>

#include "ui/metrics.hpp"

namespace quorrel {
namespace {
constexpr int kLeftOfCentre = 60;  // twips
constexpr int kFrame = 8;          // pixels on each side, with room for the shift
}  // namespace

SplashDialog::SplashDialog(const frmSplash& form)
    : QDialog(nullptr, Qt::SplashScreen | Qt::FramelessWindowHint),
      picture_(form.ShowsHtmlHelpPicture() ? ":/quorrel/icons/splash_html_help.svg"
                                           : ":/quorrel/icons/splash_javahelp.svg") {
    setObjectName("frmSplash");
    setAccessibleName(form.ShowsHtmlHelpPicture() ? "Quorrel HTML Help Edition"
                                                  : "Quorrel JavaHelp Edition");
    setFixedSize(QSvgRenderer(picture_).defaultSize() + QSize(2 * kFrame, 2 * kFrame));
    Place();
    QTimer::singleShot(frmSplash::kMilliseconds, this, &QDialog::accept);
}

void SplashDialog::Place() {
    const QRect screen = QGuiApplication::primaryScreen()->availableGeometry();
    QRect place(QPoint(), size());
    place.moveCenter(screen.center());
    move(place.topLeft());
}

void SplashDialog::paintEvent(QPaintEvent*) {
    QPainter painter(this);
    painter.setRenderHint(QPainter::Antialiasing);
    painter.fillRect(rect(), palette().mid());
    painter.fillRect(rect().adjusted(1, 1, -1, -1), palette().window());
    QSvgRenderer picture(picture_);
    QRect place(QPoint(), picture.defaultSize());
    place.moveCenter(rect().center());
    picture.render(&painter, place.translated(-PixelsOfTwips(kLeftOfCentre), 0));
}

void SplashDialog::keyPressEvent(QKeyEvent*) {
    accept();
}

void SplashDialog::mousePressEvent(QMouseEvent*) {
    accept();
}

}  // namespace quorrel
