// A list that keeps its lines sorted, with one selected, 0-based; -1 stands for none.
#pragma once

#include <algorithm>
#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/controls/control.hpp"
#include "platform/unicode.hpp"

namespace quorrel {

/// The order is that of the upper-cased lines; equal ones stay in the order of their addition.
class ListBox : public Control {
  public:
    Property<int> ListIndex{changed, -1};

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
    void Clear() {
        items_.clear();
        ListIndex = -1;
        changed.Emit();
    }
    /// The selected line, empty for none.
    [[nodiscard]] std::string Text() const {
        const int index = ListIndex;
        return index >= 0 && index < ListCount() ? items_[static_cast<std::size_t>(index)]
                                                 : std::string();
    }
    /// The position of the last line that was added.
    [[nodiscard]] int NewIndex() const { return new_index_; }
    [[nodiscard]] int ListCount() const { return static_cast<int>(items_.size()); }
    [[nodiscard]] const std::vector<std::string>& List() const { return items_; }
    /// The position of the first line that is exactly `text`, or -1.
    [[nodiscard]] int Find(std::string_view text) const {
        const auto found = std::find(items_.begin(), items_.end(), text);
        return found == items_.end() ? -1 : static_cast<int>(found - items_.begin());
    }

  private:
    std::vector<std::string> items_;
    int new_index_ = -1;
};

}  // namespace quorrel
