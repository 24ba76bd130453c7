// A list of texts with one selected, 0-based; -1 stands for none.
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/control.hpp"

namespace quorrel {

class ComboBox : public Control {
  public:
    Property<int> ListIndex{changed, -1};

    void AddItem(std::string text) {
        items_.push_back(std::move(text));
        changed.Emit();
    }
    void Clear() {
        items_.clear();
        ListIndex = -1;
        changed.Emit();
    }
    /// The selected text, empty for none.
    [[nodiscard]] std::string Text() const {
        const int index = ListIndex;
        return index >= 0 && index < ListCount() ? items_[static_cast<std::size_t>(index)]
                                                 : std::string();
    }
    /// Selects the first entry that is exactly this text; where there is none nothing changes.
    void SelectText(std::string_view text) {
        for (int i = 0; i < ListCount(); ++i) {
            if (items_[static_cast<std::size_t>(i)] != text) continue;
            ListIndex = i;
            return;
        }
    }
    [[nodiscard]] int ListCount() const { return static_cast<int>(items_.size()); }
    [[nodiscard]] const std::vector<std::string>& List() const { return items_; }

  private:
    std::vector<std::string> items_;
};

/// A list of proposals for a text that can be typed as well.
class TextComboBox : public TextBox {
  public:
    void AddItem(std::string text) {
        items_.push_back(std::move(text));
        changed.Emit();
    }
    /// The text goes as well.
    void Clear() {
        items_.clear();
        Text = std::string();
        changed.Emit();
    }
    [[nodiscard]] const std::vector<std::string>& List() const { return items_; }

  private:
    std::vector<std::string> items_;
};

}  // namespace quorrel
