// A list of texts with one selected, 0-based; -1 stands for none.
#pragma once

#include <string>
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
    [[nodiscard]] int ListCount() const { return static_cast<int>(items_.size()); }
    [[nodiscard]] const std::vector<std::string>& List() const { return items_; }

  private:
    std::vector<std::string> items_;
};

}  // namespace quorrel
