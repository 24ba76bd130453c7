// What an author has typed into a dialog and could lose.
#pragma once

#include <QHash>
#include <QObject>
#include <QSet>
#include <QString>

#include <memory>

class QDialog;

namespace quorrel {

class TypedText {
  public:
    /// The dialog has all of its fields, filled as it opens.
    explicit TypedText(QDialog& dialog);

    /// Whether the dialog may go: nothing was typed that is not as it was at the opening, or the
    /// user says that it may be lost.
    [[nodiscard]] bool MayBeLost() const;

  private:
    using Texts = QHash<const QObject*, QString>;
    [[nodiscard]] Texts TextsNow() const;
    [[nodiscard]] bool IsOneLost() const;

    QDialog& dialog_;
    Texts first_;
    // The fields that the user has typed in. Fields follow each other, and what the program fills
    // in is nothing that is lost.
    std::shared_ptr<QSet<const QObject*>> typed_ = std::make_shared<QSet<const QObject*>>();
};

}  // namespace quorrel
