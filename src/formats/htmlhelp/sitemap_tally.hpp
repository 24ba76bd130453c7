// Counts what a reader of a sitemap could not take, or takes though nobody else would.
#pragma once

#include <optional>
#include <string_view>
#include <vector>

#include "formats/htmlhelp/sitemap.hpp"
#include "formats/markup_lines.hpp"
#include "platform/left_behind.hpp"

namespace quorrel {

/// What a reader did with one line.
struct SitemapTaken {
    /// What becomes of the first <param> on it.
    enum class Fate {
        kLost,
        kKept,      // written again as a value
        kKeptLine,  // the line is written again as it stands
    };
    Fate fate = Fate::kLost;
    SitemapParam param = {};
    std::optional<int> level = {};  // at which an entry that begins with it is written, from 1
    bool is_cut = false;            // the entry loses something that was read before
};

class SitemapTally {
  public:
    /// Entries below level `deepest` have no place in the file that is written.
    explicit SitemapTally(int deepest) : deepest_(deepest) {}

    void TakeLine(std::string_view line, const SitemapTaken& taken);
    /// At the end of the file.
    [[nodiscard]] std::vector<LeftBehind> Findings();

  private:
    void TakeTag(const Markup& tag, const SitemapTaken& taken);
    void TakeParam(const Markup& tag, const SitemapTaken& taken);
    void TakeLevel(int level);
    void BeginEntry();
    void EndEntry(bool is_ended);

    int deepest_;
    MarkupLines markup_;
    bool is_first_param_ = true;  // of the line
    int depth_ = 0;               // of open lists
    std::optional<int> first_depth_;
    bool in_entry_ = false;
    bool is_placed_ = false;
    bool is_whole_ = true;
    bool says_something_ = false;
    LossCount entries_;
    int moved_ = 0;
    int too_deep_ = 0;
    int revived_ = 0;
    int others_ = 0;
};

}  // namespace quorrel
