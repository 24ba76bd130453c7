// What a test does in the dialogs that come up one after the other.
#pragma once

#include <gtest/gtest.h>

#include <QApplication>
#include <QDialog>
#include <QPointer>
#include <QTimer>
#include <QWidget>

#include <algorithm>
#include <deque>
#include <functional>
#include <string>
#include <utility>
#include <vector>

namespace quorrel::test {

class ModalScript {
  public:
    ModalScript() {
        QObject::connect(&poll_, &QTimer::timeout, &poll_, [this] { Look(); });
        poll_.start(10);
    }
    ~ModalScript() { EXPECT_TRUE(steps_.empty()) << "never shown: " << steps_.front().first; }

    /// `work` runs once in the next dialog of this name.
    void Expect(std::string name, std::function<void(QWidget&)> work) {
        steps_.emplace_back(std::move(name), std::move(work));
    }
    [[nodiscard]] bool IsDone() const { return steps_.empty(); }

  private:
    void Look() {
        QWidget* front = QApplication::activeModalWidget();
        if (front == nullptr || !front->isVisible()) return;
        const std::string name = front->objectName().toStdString();
        if (steps_.empty() || steps_.front().first != name) {
            // A dialog stays in front while its work goes on, and comes back there behind another.
            if (std::find(known_.begin(), known_.end(), front) != known_.end()) return;
            ADD_FAILURE() << "unexpected dialog: " << name;
            if (auto* dialog = qobject_cast<QDialog*>(front)) dialog->reject();
            return;
        }
        known_.emplace_back(front);
        // Not from here: a timer is silent as long as its own slot runs, and the work may bring
        // up the next dialog.
        QTimer::singleShot(0, front,
                           [front, work = std::move(steps_.front().second)] { work(*front); });
        steps_.pop_front();
    }

    QTimer poll_;
    std::vector<QPointer<QWidget>> known_;
    std::deque<std::pair<std::string, std::function<void(QWidget&)>>> steps_;
};

}  // namespace quorrel::test
