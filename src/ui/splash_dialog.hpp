// The view of frmSplash.
#pragma once

#include <QDialog>

#include "app/form_splash.hpp"

namespace quorrel {

class SplashDialog : public QDialog {
    Q_OBJECT
  public:
    explicit SplashDialog(const frmSplash& form);

  protected:
    void paintEvent(QPaintEvent* event) override;
    void keyPressEvent(QKeyEvent* event) override;
    void mousePressEvent(QMouseEvent* event) override;

  private:
    void Place();

    QString picture_;
};

}  // namespace quorrel
