// What a page's script says to the user, or asks.
#pragma once

#include <QDialog>

class QCheckBox;
class QLineEdit;

namespace quorrel {

class ScriptDialog : public QDialog {
    Q_OBJECT
  public:
    enum class Kind { kAlert, kConfirm, kPrompt };
    /// `may_suppress` offers to see no more of them.
    ScriptDialog(Kind kind, const QString& message, bool may_suppress, QWidget* parent);

    /// The line of a prompt.
    void SetAnswer(const QString& answer);
    [[nodiscard]] QString Answer() const;
    [[nodiscard]] bool IsSuppressing() const;

  private:
    QLineEdit* answer_;
    QCheckBox* suppress_;
};

}  // namespace quorrel
