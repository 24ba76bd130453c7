// The view of a page in which scripts run.
#pragma once

#include <QWebEngineView>

namespace quorrel {

class PreviewPage;

/// Tells its page of the user's clicks and keys.
class PreviewView : public QWebEngineView {
    Q_OBJECT
  public:
    explicit PreviewView(QWidget* parent);

  protected:
    void childEvent(QChildEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
    void contextMenuEvent(QContextMenuEvent* event) override;
};

}  // namespace quorrel
