// The topic that a path of the keyword index means.
#pragma once

#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/controls/list_view.hpp"

namespace quorrel {

/// Gives the results of a scan over the rows from the first to the last that looks for the
/// first place of a path inside each full path, case ignored, and takes a row where the path
/// stands at the very beginning or behind a backslash. The path may be only the beginning of a
/// longer name. Cost: one sort of the table, then a look-up a path.
///
/// The table must not change while the finder is in use.
class TopicPathFinder {
  public:
    explicit TopicPathFinder(ListView& ListTopics);
    /// The first row that the scan would take, or null.
    [[nodiscard]] ListRow* Find(std::string_view path);

  private:
    /// A stretch of an upper-cased full path up to its end, and its row.
    struct Suffix {
        std::string_view text;
        int row = 0;
    };
    /// A place in the table of whole paths; row 0 is a free one.
    struct Slot {
        std::uint64_t hash = 0;
        const char* path = nullptr;
        std::uint32_t size = 0;
        int row = 0;
    };

    void CopyPaths();
    void HashPaths();
    [[nodiscard]] std::string_view PathOf(int row) const;
    /// The slot of a path, or the free one where it would go.
    [[nodiscard]] std::size_t Place(std::string_view upper, std::uint64_t hash) const;
    /// Sorts `suffixes` by their text.
    static void Sort(std::vector<Suffix>& suffixes);
    [[nodiscard]] int FindSlowly(const std::string& upper);
    void MakeInnerSuffixes();
    /// The lowest row number with `upper` at the beginning of one of `suffixes`, or 0. With
    /// `inner` only rows without an earlier place of it count.
    [[nodiscard]] int Lowest(const std::vector<Suffix>& suffixes, std::string_view upper,
                             bool inner) const;

    ListView& topics_;
    // The full paths, upper-cased, in one piece: in a large project the rows themselves are too
    // far apart for a hundred thousand look-ups in no order.
    std::string paths_;
    std::vector<std::size_t> ends_;  // of each path in paths_, by row; at 0 the beginning
    std::vector<Slot> slots_;        // a power of two of them
    std::vector<Suffix> whole_;
    std::vector<Suffix> inner_;  // from behind each backslash, made when they can matter
    bool inner_made_ = false;
    bool has_inner_colon_ = false;
    bool has_extensions_ = false;  // some full path is the beginning of another one
    std::unordered_map<std::string, int> found_;
};

}  // namespace quorrel
