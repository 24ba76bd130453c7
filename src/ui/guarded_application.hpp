// The application that no failure of a step ends.
#pragma once

#include <QApplication>
#include <QSet>

namespace quorrel {

/// All that the user, a timer or the web engine sets going comes as an event: here is the one place
/// where what an event's work raises is caught, whatever is on the way to it. The event counts as
/// handled then. Events inside the waits of a routine end here as well, so that a failure of theirs
/// does not break off that routine.
///
/// Only what the engine calls by itself (a request, a navigation) has the engine's frames in
/// between, which no exception may pass: such calls catch what they raise, or put off their work.
class GuardedApplication : public QApplication {
    Q_OBJECT
  public:
    using QApplication::QApplication;

    bool notify(QObject* receiver, QEvent* event) override;

  signals:
    /// A failure broke off the work of an event. It comes from the event loop, not from within the
    /// event. `is_news`: the user has not been told of the same one since he last did something. A
    /// timer or a view that fails again and again must not bury him in messages.
    void StepFailed(int number, const QString& text, bool is_news);

  private:
    void Report(int number, const char* text);

    QSet<QString> told_;
    bool is_telling_ = false;
};

}  // namespace quorrel
