#include "project/topic_path_finder.hpp"

#include <algorithm>

#include "platform/text.hpp"
#include "platform/unicode.hpp"
#include "project/project_state.hpp"

namespace quorrel {

TopicPathFinder::TopicPathFinder(ListView& ListTopics) : topics_(ListTopics) {
    CopyPaths();
    HashPaths();
    for (int row = 1; row <= topics_.Count(); ++row) {
        const std::string_view path = PathOf(row);
        const std::size_t backslash = path.find('\\');
        if (backslash != npos && path.find(':', backslash) != npos) has_inner_colon_ = true;
        whole_.push_back({path, row});
    }
    Sort(whole_);
    for (std::size_t i = 1; i < whole_.size(); ++i) {
        const std::string_view before = whole_[i - 1].text;
        if (whole_[i].text.size() > before.size() && whole_[i].text.starts_with(before)) {
            has_extensions_ = true;
        }
    }
}

void TopicPathFinder::CopyPaths() {
    ends_.push_back(0);
    for (int row = 1; row <= topics_.Count(); ++row) {
        paths_ += UpperUnicode(topics_.At(row).SubItems(topic_cell::kFullPath));
        ends_.push_back(paths_.size());
    }
}

std::string_view TopicPathFinder::PathOf(int row) const {
    const auto i = static_cast<std::size_t>(row);
    return std::string_view(paths_).substr(ends_[i - 1], ends_[i] - ends_[i - 1]);
}

void TopicPathFinder::HashPaths() {
    std::size_t slots = 16;
    while (slots < ends_.size() * 2) slots *= 2;
    slots_.resize(slots);
    for (int row = 1; row <= topics_.Count(); ++row) {
        const std::string_view path = PathOf(row);
        const std::uint64_t hash = HashIgnoringCase(path);
        Slot& slot = slots_[Place(path, hash)];
        // Of rows with one path the first stays.
        if (slot.row == 0) slot = {hash, path.data(), static_cast<std::uint32_t>(path.size()), row};
    }
}

std::size_t TopicPathFinder::Place(std::string_view upper, std::uint64_t hash) const {
    const std::size_t mask = slots_.size() - 1;
    std::size_t place = hash & mask;
    while (slots_[place].row != 0) {
        const Slot& slot = slots_[place];
        if (slot.hash == hash && std::string_view(slot.path, slot.size) == upper) break;
        place = (place + 1) & mask;
    }
    return place;
}

void TopicPathFinder::Sort(std::vector<Suffix>& suffixes) {
    std::sort(suffixes.begin(), suffixes.end(),
              [](const Suffix& a, const Suffix& b) { return a.text < b.text; });
}

void TopicPathFinder::MakeInnerSuffixes() {
    inner_made_ = true;
    for (int row = 1; row <= topics_.Count(); ++row) {
        const std::string_view path = PathOf(row);
        for (std::size_t at = path.find('\\'); at != npos; at = path.find('\\', at + 1)) {
            inner_.push_back({path.substr(at + 1), row});
        }
    }
    Sort(inner_);
}

int TopicPathFinder::Lowest(const std::vector<Suffix>& suffixes, std::string_view upper,
                            bool inner) const {
    int lowest = 0;
    auto suffix = std::lower_bound(suffixes.begin(), suffixes.end(), upper,
                                   [](const Suffix& a, std::string_view b) { return a.text < b; });
    for (; suffix != suffixes.end() && suffix->text.starts_with(upper); ++suffix) {
        if (lowest != 0 && suffix->row >= lowest) continue;
        if (inner) {
            const std::string_view path = PathOf(suffix->row);
            if (path.find(upper) != path.size() - suffix->text.size()) continue;
        }
        lowest = suffix->row;
    }
    return lowest;
}

int TopicPathFinder::FindSlowly(const std::string& upper) {
    const int row = Lowest(whole_, upper, false);
    // A path with a drive can stand further in only where a full path has a second colon.
    if (Contains(upper, ":") && !has_inner_colon_) return row;
    if (!inner_made_) MakeInnerSuffixes();
    const int inner = Lowest(inner_, upper, true);
    return row == 0 || (inner != 0 && inner < row) ? inner : row;
}

ListRow* TopicPathFinder::Find(std::string_view path) {
    const std::string upper = UpperUnicode(path);
    // The usual case: a whole path, which no other one goes on from or has within.
    if (!has_extensions_ && !has_inner_colon_ && Contains(upper, ":")) {
        const int row = slots_[Place(upper, HashIgnoringCase(upper))].row;
        if (row != 0) return &topics_.At(row);
    }
    // Each path is sought once. A path that many rows begin with has few others beside it that
    // they begin with too, so the whole work stays in step with the text of the table.
    const auto [known, is_new] = found_.try_emplace(upper, 0);
    if (is_new) known->second = FindSlowly(known->first);
    return known->second == 0 ? nullptr : &topics_.At(known->second);
}

}  // namespace quorrel
