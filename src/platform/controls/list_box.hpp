// A list that keeps its lines sorted.
#pragma once

#include <algorithm>
#include <string>

#include "platform/controls/text_list.hpp"
#include "platform/unicode.hpp"

namespace quorrel {

/// The order is that of the upper-cased lines; equal ones stay in the order of their addition.
class ListBox : public TextList {
  public:
    /// NewIndex tells where the line has come to stand. The selected line stays selected.
    void AddItem(std::string text) {
        const auto place = std::upper_bound(items_.begin(), items_.end(), text,
                                            [](const std::string& a, const std::string& b) {
                                                return CompareIgnoringCase(a, b) < 0;
                                            });
        new_index_ = static_cast<int>(place - items_.begin());
        items_.insert(place, std::move(text));
        if (ListIndex >= new_index_) ListIndex = ListIndex + 1;
        changed.Emit();
    }
    /// A position outside the list is left alone. With the selected line the selection goes.
    void RemoveItem(int position) {
        if (position < 0 || position >= ListCount()) return;
        items_.erase(items_.begin() + position);
        if (ListIndex == position) ListIndex = -1;
        if (ListIndex > position) ListIndex = ListIndex - 1;
        changed.Emit();
    }
    /// The position of the last line that was added.
    [[nodiscard]] int NewIndex() const { return new_index_; }

  private:
    int new_index_ = -1;
};

}  // namespace quorrel
