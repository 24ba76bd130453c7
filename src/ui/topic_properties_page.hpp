// The page of the open topic's properties.
#pragma once

#include <QScrollArea>

class QBoxLayout;
class QPlainTextEdit;

namespace quorrel {

struct MainForm;

/// Title, identifier and status beside the keywords, or above them where there is little room.
class TopicPropertiesPage : public QScrollArea {
    Q_OBJECT
  public:
    explicit TopicPropertiesPage(MainForm& main, QWidget* parent = nullptr);

  protected:
    void resizeEvent(QResizeEvent* event) override;

  private:
    [[nodiscard]] QWidget* MakeTopicGroup();
    [[nodiscard]] QWidget* MakeStatusGroup();
    [[nodiscard]] QWidget* MakeKeywordGroup();
    [[nodiscard]] QLayout* MakeKeyFields();
    [[nodiscard]] QLayout* MakeKeyButtons();
    void FollowNotes();
    void FollowTopic();

    MainForm& main_;
    QWidget* body_;
    QBoxLayout* columns_;
    QPlainTextEdit* notes_ = nullptr;
};

}  // namespace quorrel
