// A progress bar that keeps up with work that leaves no time to the event loop.
#pragma once

#include <QElapsedTimer>
#include <QProgressBar>

namespace quorrel {

class ProgressBar;

class ProgressView : public QProgressBar {
    Q_OBJECT
  public:
    /// Work that is over within `patience` milliseconds is not shown.
    ProgressView(ProgressBar& model, const QString& name, int patience, QWidget* parent = nullptr);

  private:
    void Follow();

    ProgressBar& model_;
    int patience_;
    QElapsedTimer running_;
};

}  // namespace quorrel
