// The bar under a topic by which a text in it is found.
#pragma once

#include <QWidget>

#include <functional>

class QCheckBox;
class QLabel;
class QLineEdit;

namespace quorrel {

/// Enter and F3 find the next hit, with Shift the one before; Esc closes the bar.
class FindBar : public QWidget {
    Q_OBJECT
  public:
    explicit FindBar(QWidget* parent);

    /// Opens the bar, with `text` to begin with if there is one.
    void Open(const QString& text);
    /// Finds the next or previous hit; opens the bar where nothing is wanted yet.
    void Find(bool is_up);

    /// Selects the next hit in the topic; false for none.
    std::function<bool(const QString& text, bool is_up, bool match_case)> find;

  signals:
    void Closed();

  protected:
    void keyPressEvent(QKeyEvent* event) override;

  private:
    void Close();

    QLineEdit* text_;
    QCheckBox* match_case_;
    QLabel* result_;
};

}  // namespace quorrel
