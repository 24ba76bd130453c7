// The user guide on the screen.
#pragma once

#include <QDialog>

#include <string>
#include <string_view>

#include "app/user_guide.hpp"
#include "ui/preview_pane.hpp"
#include "ui/window_settings.hpp"

class QSplitter;
class QTreeView;

namespace quorrel {

class TreeViewModel;

/// Shows the contents of the guide beside its pages, and stays open beside the work.
class HelpWindow : public QDialog {
    Q_OBJECT
  public:
    HelpWindow(MainForm& main, QWidget* parent);
    ~HelpWindow() override;

    /// Opens the page with the identifier, or where the guide begins for an empty one.
    void ShowTopic(std::string_view identifier);

  private:
    void MakeContents();
    QWidget* MakeButtons();
    void Open(const std::string& path);
    void OpenNode(const QModelIndex& index);

    UserGuide guide_;
    PreviewPane page_;
    WindowSettings settings_;
    QTreeView* contents_;
    TreeViewModel* model_ = nullptr;
    QSplitter* split_;
};

}  // namespace quorrel
