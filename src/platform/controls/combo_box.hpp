// Lists of texts from which one is chosen.
#pragma once

#include <string>
#include <string_view>

#include "platform/controls/text_list.hpp"

namespace quorrel {

class ComboBox : public TextList {
  public:
    void AddItem(std::string text) {
        items_.push_back(std::move(text));
        changed.Emit();
    }
    /// Selects the first entry that is exactly this text; where there is none nothing changes.
    void SelectText(std::string_view text) {
        const int found = Find(text);
        if (found >= 0) ListIndex = found;
    }
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
