// A line of text that gives way where it does not fit; the tool tip has all of it.
#pragma once

#include <QLabel>

namespace quorrel {

class ElidedLabel : public QLabel {
    Q_OBJECT
  public:
    ElidedLabel(const QString& name, Qt::TextElideMode mode, QWidget* parent = nullptr);

    void ShowText(const QString& text);
    QSize minimumSizeHint() const override;

  protected:
    void paintEvent(QPaintEvent* event) override;

  private:
    Qt::TextElideMode mode_;
};

}  // namespace quorrel
