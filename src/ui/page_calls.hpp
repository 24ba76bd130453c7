// Calls from the program into the script that edits a page.
#pragma once

#include <QEventLoop>
#include <QJsonArray>
#include <QObject>
#include <QPointer>
#include <QVariant>

#include <functional>
#include <vector>

class QWebEnginePage;

namespace quorrel {

/// Calls by name, each waited for. Events other than the user's run meanwhile.
class PageCalls : public QObject {
    Q_OBJECT
  public:
    PageCalls(QWebEnginePage* page, QObject* parent);

    /// The load whose script answers from now on; 0 for none. What is waited for ends.
    void SetLoad(int load);
    [[nodiscard]] int Load() const { return load_; }

    /// Gives what the function in the page gives. Raises what the function raises, 91 where there
    /// is no document, and 57 when the page does not answer.
    QVariant Call(const char* name, const QJsonArray& arguments = {});
    /// As Call, for an object of one load: raises 91 when that is over.
    QVariant CallFor(int load, const char* name, const QJsonArray& arguments);
    /// Calls and gives `take` the answer when it is there, with the version that it is of; never
    /// where there is none by the end of the load.
    void Ask(const char* name, const QJsonArray& arguments,
             std::function<void(const QVariant& result, int version)> take);
    /// Calls without waiting. Calls keep their order.
    void Post(const char* name, const QJsonArray& arguments);

    /// The page drops an object that was kept for the program. Done with the next call.
    void Release(int load, int object);

    /// A call is being waited for.
    [[nodiscard]] bool IsWaiting() const { return waiting_ > 0; }
    /// The state of the content: 0 as loaded, and another number for each other state.
    [[nodiscard]] int Version() const { return version_; }
    void SetVersion(int version);
    /// Grows with each call that may have changed something, and with each message from the page.
    [[nodiscard]] int Count() const { return count_; }
    void NoteMessage() { ++count_; }

  signals:
    /// The content has another state.
    void Edited();
    /// Nobody waits any longer.
    void Idle();
    /// What is being waited for will not come.
    void Ended();

  private:
    QString Code(const char* name, const QJsonArray& arguments);
    QVariant Run(const QString& code);

    QPointer<QWebEnginePage> page_;
    std::vector<int> released_;
    int load_ = 0;
    int version_ = 0;
    int waiting_ = 0;
    int count_ = 0;
};

}  // namespace quorrel
