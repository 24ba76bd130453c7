// The web engine's view with the few commands that a topic has.
#pragma once

#include <QWebEngineView>

namespace quorrel {

class TopicView : public QWebEngineView {
    Q_OBJECT
  public:
    explicit TopicView(QWidget* parent);

  protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
};

}  // namespace quorrel
