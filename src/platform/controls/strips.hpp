// The tab strip and the status bar, which are rows of captions, and the progress bar.
#pragma once

#include <array>
#include <string>
#include <vector>

#include "platform/controls/control.hpp"

namespace quorrel {

/// Tabs are numbered from 1.
class TabStrip : public Control {
  public:
    explicit TabStrip(std::vector<std::string> captions) : captions_(std::move(captions)) {}

    Property<int> SelectedIndex{changed, 1};

    [[nodiscard]] int Count() const { return static_cast<int>(captions_.size()); }
    [[nodiscard]] const std::string& TabCaption(int index) const {
        return captions_.at(static_cast<std::size_t>(index - 1));
    }
    void SetTabCaption(int index, std::string caption) {
        captions_.at(static_cast<std::size_t>(index - 1)) = std::move(caption);
        changed.Emit();
    }

  private:
    std::vector<std::string> captions_;
};

/// Panels are numbered from 1: the state of the work or the title of the topic, and its path.
class StatusBar : public Control {
  public:
    [[nodiscard]] const std::string& Panel(int index) const {
        return panels_.at(static_cast<std::size_t>(index - 1));
    }
    void SetPanel(int index, std::string text) {
        panels_.at(static_cast<std::size_t>(index - 1)) = std::move(text);
        changed.Emit();
    }

  private:
    std::array<std::string, 2> panels_;
};

/// How far a long work has come.
class ProgressBar : public Control {
  public:
    Property<int> Max{changed, 100};
    Property<int> Value{changed};
};

/// Shows a bar while it lives.
class ShownProgress {
  public:
    /// Of so many pieces of work.
    ShownProgress(ProgressBar& bar, int pieces) : bar_(bar) {
        bar_.Max = pieces;
        bar_.Value = 0;
        bar_.Visible = true;
    }
    ShownProgress(const ShownProgress&) = delete;
    ShownProgress& operator=(const ShownProgress&) = delete;
    ~ShownProgress() { bar_.Visible = false; }

    /// A piece is done.
    void Next() { bar_.Value = bar_.Value() + 1; }

  private:
    ProgressBar& bar_;
};

}  // namespace quorrel
