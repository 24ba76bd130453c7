// A list of texts with one selected, 0-based; -1 stands for none.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/control.hpp"

namespace quorrel {

/// What the lists have in common; where a new text comes to stand is theirs to say.
class TextList : public Control {
  public:
    Property<int> ListIndex{changed, -1};

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
    [[nodiscard]] int ListCount() const { return static_cast<int>(items_.size()); }
    [[nodiscard]] const std::vector<std::string>& List() const { return items_; }
    /// The position of the first text that is exactly `text`, or -1.
    [[nodiscard]] int Find(std::string_view text) const {
        const auto found = std::find(items_.begin(), items_.end(), text);
        return found == items_.end() ? -1 : static_cast<int>(found - items_.begin());
    }

  protected:
    std::vector<std::string> items_;
};

}  // namespace quorrel
