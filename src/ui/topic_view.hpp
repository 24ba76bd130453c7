// The web engine's view of a topic.
#pragma once

#include <QWebEngineView>

#include <functional>

namespace quorrel {

class TopicView : public QWebEngineView {
    Q_OBJECT
  public:
    explicit TopicView(QWidget* parent);

    /// The user did something that the page may answer by a change.
    std::function<void()> input_seen;
    /// The user asks for the context menu.
    std::function<void(const QPoint& place)> menu_wanted;
    /// Drags over the page and drops on it, which the engine does not get.
    std::function<bool(const QDropEvent& drop)> may_drop;
    std::function<void(const QDropEvent& drop)> dropped;

  protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void dragEnterEvent(QDragEnterEvent* event) override;
    void dragMoveEvent(QDragMoveEvent* event) override;
    void dragLeaveEvent(QDragLeaveEvent* event) override;
    void dropEvent(QDropEvent* event) override;
    void childEvent(QChildEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace quorrel
