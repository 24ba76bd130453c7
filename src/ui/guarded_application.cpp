#include "ui/guarded_application.hpp"

#include <QEvent>
#include <QMetaObject>
#include <QScopedValueRollback>
#include <QThread>

#include <exception>
#include <new>

#include "platform/failure.hpp"

namespace quorrel {
namespace {

bool IsDoneByUser(const QEvent& event) {
    switch (event.type()) {
        case QEvent::KeyPress:
        case QEvent::MouseButtonPress:
        case QEvent::Drop:
            return true;
        default:
            return false;
    }
}

}  // namespace

bool GuardedApplication::notify(QObject* receiver, QEvent* event) {
    // The engine's threads have no work of ours.
    if (QThread::currentThread() != thread()) return QApplication::notify(receiver, event);
    // The answer to the message itself is no new step.
    if (!is_telling_ && IsDoneByUser(*event)) told_.clear();
    try {
        return QApplication::notify(receiver, event);
    } catch (const RuntimeError& error) {
        Report(error.Number(), error.what());
    } catch (const std::bad_alloc&) {
        Report(run_time_error::kOutOfMemory, "Out of memory");
    } catch (const std::exception& error) {
        Report(run_time_error::kInternal, error.what());
    }
    return true;
}

void GuardedApplication::Report(int number, const char* text) {
    const auto tell = [this, number, text = QString::fromUtf8(text)] {
        const bool is_news = !is_telling_ && !told_.contains(text);
        if (is_news) told_.insert(text);
        const QScopedValueRollback telling(is_telling_, is_telling_ || is_news);
        emit StepFailed(number, text, is_news);
    };
    // The event may have been a paint event, within which no message can be shown.
    QMetaObject::invokeMethod(this, tell, Qt::QueuedConnection);
}

}  // namespace quorrel
