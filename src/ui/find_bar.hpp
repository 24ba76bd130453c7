// The bar below a text in which one searches it.
#pragma once

#include <QPointer>
#include <QWidget>

class QCheckBox;
class QKeyEvent;
class QLabel;
class QLineEdit;

namespace quorrel {

/// Asks its owner to search; hidden until it is opened.
class FindBar : public QWidget {
    Q_OBJECT
  public:
    enum class Step {
        kHere,  // the text has changed: what is found already may stay
        kNext,
        kPrevious
    };

    explicit FindBar(QWidget* parent = nullptr);

    /// From now on the bar's keys work in `text` too, which gets the focus when the bar closes.
    void Serve(QWidget* text);

    /// Shows the bar and takes the focus. `selected` becomes the text to be found if it is a short
    /// one of one line.
    void Open(const QString& selected);
    void Close();
    /// As the keys do: opens the bar where there is nothing to find yet.
    void Repeat(Step step);

    [[nodiscard]] QString Text() const;
    [[nodiscard]] bool MatchCase() const;
    [[nodiscard]] bool WholeWords() const;
    /// What came of it; empty for nothing to say.
    void ShowMessage(const QString& message);
    /// The messages that every text has.
    static QString NotFoundMessage();
    static QString WrappedMessage(Step step);

  signals:
    /// Ctrl+F was pressed: the owner calls Open with its selection.
    void OpenRequested();
    void Find(quorrel::FindBar::Step step);

  protected:
    bool eventFilter(QObject* watched, QEvent* event) override;

  private:
    enum class Key { kNone, kOpen, kNext, kPrevious, kClose };

    [[nodiscard]] Key KeyOf(const QKeyEvent& event, bool in_bar) const;
    void Work(Key key);

    QLineEdit* edit_;
    QCheckBox* match_case_;
    QCheckBox* whole_words_;
    QLabel* message_;
    QPointer<QWidget> text_;
};

}  // namespace quorrel
