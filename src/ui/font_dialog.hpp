// The choice of a font for the selected text.
#pragma once

#include <QColor>
#include <QDialog>

class QCheckBox;
class QFontComboBox;
class QPushButton;
class QSpinBox;

namespace quorrel {

/// As HTML knows it.
struct FontChoice {
    QString name;
    int size = 3;  // 1 to 7
    QColor color;
    bool bold = false;
    bool italic = false;
    bool underline = false;
};

class FontDialog : public QDialog {
    Q_OBJECT
  public:
    FontDialog(const FontChoice& choice, QWidget* parent);
    [[nodiscard]] FontChoice Choice() const;

  private:
    void ChooseColor();
    void ShowColor();

    QString first_name_;
    QColor color_;
    QFontComboBox* name_;
    QSpinBox* size_;
    QPushButton* color_button_;
    QCheckBox* bold_;
    QCheckBox* italic_;
    QCheckBox* underline_;
};

}  // namespace quorrel
