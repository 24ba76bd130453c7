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
    /// A key, before the page gets it; true keeps it from the page.
    std::function<bool(const QKeyEvent&)> key_pressed;
    /// The user asks for the context menu.
    std::function<void(const QPoint& place)> menu_wanted;

  protected:
    void contextMenuEvent(QContextMenuEvent* event) override;
    void childEvent(QChildEvent* event) override;
    bool eventFilter(QObject* watched, QEvent* event) override;
};

}  // namespace quorrel
