// A list that keeps its lines sorted.
#pragma once

#include <algorithm>
#include <iterator>
#include <string>
#include <utility>
#include <vector>

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
    /// The same for many lines in a row; it is told once.
    void AddItems(std::vector<std::string> lines) {
        if (lines.empty()) return;
        const auto before = [](const std::string& a, const std::string& b) {
            return CompareIgnoringCase(a, b) < 0;
        };
        const std::string last = lines.back();
        const std::string selected = Text();
        const bool has_selection = ListIndex >= 0;
        std::stable_sort(lines.begin(), lines.end(), before);
        const auto ahead = std::lower_bound(lines.begin(), lines.end(), selected, before);
        const auto moved = static_cast<int>(ahead - lines.begin());
        const auto old_size = static_cast<std::ptrdiff_t>(items_.size());
        items_.insert(items_.end(), std::make_move_iterator(lines.begin()),
                      std::make_move_iterator(lines.end()));
        std::inplace_merge(items_.begin(), items_.begin() + old_size, items_.end(), before);
        const auto place = std::upper_bound(items_.begin(), items_.end(), last, before);
        new_index_ = static_cast<int>(place - items_.begin()) - 1;
        if (has_selection) ListIndex = ListIndex + moved;
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
