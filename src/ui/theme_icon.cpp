#include "ui/theme_icon.hpp"

#include <QIconEngine>
#include <QPainter>
#include <QPixmap>

namespace quorrel {
namespace {

constexpr double kPale = 0.35;

class PaleWhenDisabled : public QIconEngine {
  public:
    explicit PaleWhenDisabled(QIcon icon) : icon_(std::move(icon)) {}

    QIconEngine* clone() const override { return new PaleWhenDisabled(icon_); }

    void paint(QPainter* painter, const QRect& rect, QIcon::Mode mode,
               QIcon::State state) override {
        painter->save();
        if (mode == QIcon::Disabled) painter->setOpacity(painter->opacity() * kPale);
        icon_.paint(painter, rect, Qt::AlignCenter, Shown(mode), state);
        painter->restore();
    }
    QPixmap pixmap(const QSize& size, QIcon::Mode mode, QIcon::State state) override {
        return scaledPixmap(size, mode, state, 1);
    }
    QPixmap scaledPixmap(const QSize& size, QIcon::Mode mode, QIcon::State state,
                         qreal scale) override {
        // `size` is in pixels of the screen already.
        QPixmap picture = icon_.pixmap(size / scale, scale, Shown(mode), state);
        if (mode != QIcon::Disabled || picture.isNull()) return picture;
        QPixmap pale(picture.size());
        pale.setDevicePixelRatio(picture.devicePixelRatio());
        pale.fill(Qt::transparent);
        QPainter painter(&pale);
        painter.setOpacity(kPale);
        painter.drawPixmap(0, 0, picture);
        return pale;
    }
    QList<QSize> availableSizes(QIcon::Mode, QIcon::State state) override {
        return icon_.availableSizes(QIcon::Normal, state);
    }
    QString iconName() override { return icon_.name(); }
    bool isNull() override { return icon_.isNull(); }

  private:
    static QIcon::Mode Shown(QIcon::Mode mode) {
        return mode == QIcon::Disabled ? QIcon::Normal : mode;
    }

    QIcon icon_;
};

}  // namespace

QIcon ThemeIcon(const QString& name) {
    const QIcon icon = QIcon::fromTheme(name);
    return icon.isNull() ? icon : QIcon(new PaleWhenDisabled(icon));
}

}  // namespace quorrel
