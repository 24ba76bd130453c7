#include "editor/edit_plan.hpp"

#include <algorithm>
#include <utility>

#include "editor/document_tokens.hpp"

namespace quorrel::html {
namespace {

/// Hunks with more combinations of tokens than this are not looked into.
constexpr std::size_t kMostCombinations = 250'000;
/// How far a hunk may be moved to a better place.
constexpr std::size_t kLongestSlide = 200;

/// The common start and end need no keys.
template <typename TokenA, typename TokenB, typename Key>
std::vector<DiffHunk> DiffOfTokens(const std::vector<TokenA>& a, const std::vector<TokenB>& b,
                                   Key key) {
    std::size_t start = 0;
    std::size_t a_end = a.size();
    std::size_t b_end = b.size();
    while (start < a_end && start < b_end && key(a[start]) == key(b[start])) ++start;
    while (start < a_end && start < b_end && key(a[a_end - 1]) == key(b[b_end - 1])) {
        --a_end;
        --b_end;
    }
    std::vector<std::uint64_t> a_keys;
    std::vector<std::uint64_t> b_keys;
    for (std::size_t at = start; at < a_end; ++at) a_keys.push_back(key(a[at]));
    for (std::size_t at = start; at < b_end; ++at) b_keys.push_back(key(b[at]));
    std::vector<DiffHunk> hunks = DiffOf(a_keys, b_keys);
    for (DiffHunk& hunk : hunks) {
        hunk.a_begin += start;
        hunk.a_end += start;
        hunk.b_begin += start;
        hunk.b_end += start;
    }
    return hunks;
}

bool IsText(const HtmlToken& token) {
    return token.kind == TokenKind::kWord || token.kind == TokenKind::kBlank;
}

bool IsSameKind(const HtmlToken& token, const DocumentToken& read) {
    return token.kind == read.kind && token.name == read.name;
}

}  // namespace

EditPlan::EditPlan(const TokenisedText& source, const TokenisedText& base,
                   const TokenisedText& edited, const std::vector<DocumentToken>& read)
    : base_(base),
      edited_(edited),
      origins_(base.tokens.size()),
      deleted_(source.tokens.size(), false) {
    FindOrigins(read);
    KeepAscendingOrigins();
    FindHunks();
    reaches_.resize(hunks_.size());
    for (std::size_t hunk = 0; hunk < hunks_.size(); ++hunk) Slide(hunk);
    FindPairs();
    for (const DiffHunk& hunk : hunks_) MarkDeleted(hunk);
}

void EditPlan::FindOrigins(const std::vector<DocumentToken>& read) {
    // Our reading of white space is taken for the engine's: how it writes it does not matter.
    constexpr auto kLooseKey = [](const auto& token) {
        return token.kind == TokenKind::kBlank ? 1 : token.hash;
    };
    std::size_t in_ours = 0;
    std::size_t in_theirs = 0;
    std::vector<DiffHunk> hunks = DiffOfTokens(read, base_.tokens, kLooseKey);
    is_exact_ = hunks.empty();
    hunks.push_back({read.size(), read.size(), base_.tokens.size(), base_.tokens.size()});
    for (const DiffHunk& hunk : hunks) {
        while (in_ours < hunk.a_begin) TakeOrigin(in_theirs++, read[in_ours++]);
        // A word with a reference that only the engine knows, say.
        const bool is_alike = hunk.a_end - hunk.a_begin == hunk.b_end - hunk.b_begin;
        for (; in_theirs < hunk.b_end; ++in_theirs) {
            const std::size_t place = hunk.a_begin + (in_theirs - hunk.b_begin);
            if (is_alike && IsSameKind(base_.tokens[in_theirs], read[place])) {
                TakeOrigin(in_theirs, read[place]);
            }
            origins_[in_theirs].is_doubtful = true;
        }
        const bool is_missing = hunk.a_begin < hunk.a_end && hunk.b_begin == hunk.b_end;
        if (is_missing && in_theirs > 0) origins_[in_theirs - 1].is_doubtful = true;
        if (is_missing && in_theirs < origins_.size()) origins_[in_theirs].is_doubtful = true;
        in_ours = hunk.a_end;
    }
}

void EditPlan::TakeOrigin(std::size_t base, const DocumentToken& read) {
    origins_[base].first = read.first;
    origins_[base].last = read.last;
}

/// The engine moves some tokens, as text out of a table. Those stay where they are, as if the
/// engine had left them out and added others.
void EditPlan::KeepAscendingOrigins() {
    std::int32_t last = -1;
    const bool is_in_order = std::all_of(origins_.begin(), origins_.end(), [&](const Origin& it) {
        if (it.first < 0) return true;
        return it.first > std::exchange(last, it.last);
    });
    if (is_in_order) return;
    std::vector<std::size_t> firsts;
    std::vector<std::size_t> tokens;
    for (std::size_t at = 0; at < origins_.size(); ++at) {
        if (origins_[at].first < 0) continue;
        firsts.push_back(static_cast<std::size_t>(origins_[at].first));
        tokens.push_back(at);
    }
    std::vector<bool> is_kept(origins_.size(), false);
    std::int32_t end = -1;
    for (const std::size_t place : LongestAscending(firsts)) {
        const Origin& origin = origins_[tokens[place]];
        // A word that was joined over an end tag may enclose it.
        if (origin.first <= end) continue;
        is_kept[tokens[place]] = true;
        end = origin.last;
    }
    for (std::size_t at = 0; at < origins_.size(); ++at) {
        Origin& origin = origins_[at];
        if (is_kept[at] || origin.first < 0) continue;
        if (origin.first == origin.last) origin.displaced = origin.first;
        origin.first = origin.last = -1;
    }
    // What lies within the stretch of another token is not there by itself.
    std::int32_t covered = -1;
    for (Origin& origin : origins_) {
        if (origin.displaced >= 0 && origin.displaced <= covered) origin.displaced = -1;
        covered = std::max(covered, origin.last);
    }
}

void EditPlan::FindHunks() {
    hunks_ = DiffOfTokens(base_.tokens, edited_.tokens,
                          [](const HtmlToken& token) { return token.hash; });
}

/// An insertion or a deletion can often be seen in several places: of "<p>a</p><p>b</p>" may be
/// new "<p>b</p>" or "b</p><p>". Whole elements are better.
void EditPlan::Slide(std::size_t index) {
    DiffHunk& hunk = hunks_[index];
    const bool is_insertion = hunk.a_begin == hunk.a_end;
    if (!is_insertion && hunk.b_begin != hunk.b_end) return;
    const TokenisedText& text = is_insertion ? edited_ : base_;
    const std::size_t lowest = index == 0 ? 0 : hunks_[index - 1].a_end;
    DiffHunk best = hunk;
    DiffHunk moved = hunk;
    for (std::size_t steps = 0; steps < kLongestSlide && moved.a_begin > lowest; ++steps) {
        const std::size_t begin = is_insertion ? moved.b_begin : moved.a_begin;
        const std::size_t end = is_insertion ? moved.b_end : moved.a_end;
        if (text.Of(begin - 1) != text.Of(end - 1)) break;
        --moved.a_begin;
        --moved.a_end;
        --moved.b_begin;
        --moved.b_end;
        if (ScoreOf(moved) > ScoreOf(best)) best = moved;
    }
    hunk = best;
}

int EditPlan::ScoreOf(const DiffHunk& hunk) const {
    const bool is_insertion = hunk.a_begin == hunk.a_end;
    const std::vector<HtmlToken>& tokens = is_insertion ? edited_.tokens : base_.tokens;
    std::size_t begin = is_insertion ? hunk.b_begin : hunk.a_begin;
    std::size_t end = (is_insertion ? hunk.b_end : hunk.a_end) - 1;
    const bool has_blank_first = tokens[begin].kind == TokenKind::kBlank;
    const bool has_blank_last = tokens[end].kind == TokenKind::kBlank;
    if (has_blank_first && begin < end) ++begin;
    if (has_blank_last && begin < end) --end;
    const bool is_element = tokens[begin].kind == TokenKind::kStart &&
                            tokens[end].kind == TokenKind::kEnd &&
                            tokens[begin].name == tokens[end].name;
    if (!is_element) return tokens[begin].kind == TokenKind::kStart ? 1 : 0;
    return has_blank_first || has_blank_last ? 2 : 3;
}

/// How much the token looks like a changed form of the other.
int EditPlan::Likeness(std::size_t base, std::size_t edited, bool keeps_blanks) const {
    const HtmlToken& before = base_.tokens[base];
    const HtmlToken& after = edited_.tokens[edited];
    if (before.kind != after.kind) return 0;
    if (before.kind == TokenKind::kStart) return before.name == after.name ? 3 : 0;
    // White space that the engine only writes in another way stays as it is.
    if (before.kind == TokenKind::kBlank) return keeps_blanks ? 0 : 2;
    return before.kind == TokenKind::kWord ? 1 : 0;
}

void EditPlan::FindPairs() {
    int keeping = 0;  // elements around in which white space counts
    std::size_t base = 0;
    for (const DiffHunk& hunk : hunks_) {
        const int before = keeping;
        bool has_tag = false;
        for (; base < hunk.a_end; ++base) {
            const HtmlToken& token = base_.tokens[base];
            if (token.name == 0 || !KeepsBlanks(token.name)) continue;
            keeping += token.kind == TokenKind::kStart ? 1 : -1;
            has_tag = has_tag || base >= hunk.a_begin;
        }
        FindPairsIn(hunk, before > 0 || keeping > 0 || has_tag);
    }
}

/// The most alike tokens in their order, as a longest common subsequence is found.
void EditPlan::FindPairsIn(const DiffHunk& hunk, bool keeps_blanks) {
    const std::size_t rows = hunk.a_end - hunk.a_begin;
    const std::size_t columns = hunk.b_end - hunk.b_begin;
    if (rows == 0 || columns == 0 || rows * columns > kMostCombinations) return;
    const std::size_t width = columns + 1;
    std::vector<int> best((rows + 1) * width, 0);
    for (std::size_t row = rows; row-- > 0;) {
        for (std::size_t column = columns; column-- > 0;) {
            const int likeness = Likeness(hunk.a_begin + row, hunk.b_begin + column, keeps_blanks);
            const int paired = likeness > 0 ? likeness + best[(row + 1) * width + column + 1] : 0;
            best[row * width + column] = std::max(
                {paired, best[(row + 1) * width + column], best[row * width + column + 1]});
        }
    }
    for (std::size_t row = 0, column = 0; row < rows && column < columns;) {
        const int here = best[row * width + column];
        if (here == best[(row + 1) * width + column]) {
            ++row;
        } else if (here == best[row * width + column + 1]) {
            ++column;
        } else {
            pairs_.push_back({hunk.a_begin + row++, hunk.b_begin + column++});
        }
    }
}

void EditPlan::MarkDeleted(const DiffHunk& hunk) {
    auto pair = std::lower_bound(pairs_.begin(), pairs_.end(), hunk.a_begin,
                                 [](const Pair& it, std::size_t base) { return it.base < base; });
    std::int32_t from = -1;  // what stands between two deleted tokens goes with them
    for (std::size_t base = hunk.a_begin; base < hunk.a_end; ++base) {
        if (pair != pairs_.end() && pair->base == base) {
            ++pair;
            from = -1;
            continue;
        }
        const Origin& origin = origins_[base];
        if (origin.displaced >= 0) deleted_[static_cast<std::size_t>(origin.displaced)] = true;
        if (origin.first < 0) continue;
        for (std::int32_t at = from < 0 ? origin.first : from; at <= origin.last; ++at) {
            deleted_[static_cast<std::size_t>(at)] = true;
        }
        from = origin.last + 1;
    }
}

/// A block in the place of another stands on its lines.
bool EditPlan::ReplacesBlock(const DiffHunk& hunk) const {
    const auto first = base_.tokens.begin();
    return std::any_of(first + static_cast<std::ptrdiff_t>(hunk.a_begin),
                       first + static_cast<std::ptrdiff_t>(hunk.a_end), [](const HtmlToken& it) {
                           return (it.kind == TokenKind::kStart || it.kind == TokenKind::kEnd) &&
                                  IsBlockTag(it.name);
                       });
}

std::vector<bool> EditPlan::ExplicitTokens() const {
    std::vector<bool> is_explicit(base_.tokens.size(), is_all_explicit_);
    std::size_t done = 0;  // the reaches may overlap, the hunks ascend
    for (std::size_t at = 0; at < hunks_.size() && !is_all_explicit_; ++at) {
        const auto [left, right] = reaches_[at];
        if (left == 0 && right == 0) continue;
        const std::size_t begin = hunks_[at].a_begin - std::min(left, hunks_[at].a_begin);
        const std::size_t end = std::min(hunks_[at].a_end + right, is_explicit.size());
        for (std::size_t base = std::max(begin, done); base < end; ++base) is_explicit[base] = true;
        done = std::max(done, end);
    }
    return is_explicit;
}

/// The first token of the source that the hunk changes, or -1.
std::int32_t EditPlan::PlaceOf(const DiffHunk& hunk) const {
    for (std::size_t base = hunk.a_begin; base < hunk.a_end; ++base) {
        if (origins_[base].first >= 0) return origins_[base].first;
    }
    return -1;
}

std::vector<EditStep> EditPlan::Steps() const {
    const std::vector<bool> is_explicit = ExplicitTokens();
    std::vector<EditStep> steps(edited_.tokens.size());
    std::size_t base = 0;
    std::size_t edited = 0;
    auto pair = pairs_.begin();
    const auto take = [&](std::size_t from, EditStep::Action action) {
        EditStep& step = steps[edited++];
        step.action = action;
        step.is_explicit = is_explicit[from];
        step.first = origins_[from].first;
        step.last = origins_[from].last;
        step.displaced = origins_[from].displaced;
    };
    const auto keep_until = [&](std::size_t end) {
        while (base < end) take(base++, EditStep::Action::kKeep);
    };
    for (const DiffHunk& hunk : hunks_) {
        keep_until(hunk.a_begin);
        const auto action =
            ReplacesBlock(hunk) ? EditStep::Action::kNewText : EditStep::Action::kNew;
        const std::int32_t place = PlaceOf(hunk);
        while (edited < hunk.b_end) {
            if (pair != pairs_.end() && pair->edited == edited) {
                const bool is_blank = edited_.tokens[edited].kind == TokenKind::kBlank;
                take((pair++)->base, is_blank ? EditStep::Action::kKeep : EditStep::Action::kPatch);
            } else {
                steps[edited].first = place;
                steps[edited++].action = action;
            }
        }
        base = hunk.a_end;
    }
    keep_until(base_.tokens.size());
    PlaceOpeningTags(steps);
    return steps;
}

/// New start tags belong in front of what they enclose, behind what the engine left out.
void EditPlan::PlaceOpeningTags(std::vector<EditStep>& steps) const {
    for (std::size_t at = steps.size(); at-- > 1;) {
        EditStep& step = steps[at - 1];
        const bool is_new = IsNew(step) && edited_.tokens[at - 1].kind == TokenKind::kStart;
        if (is_new && steps[at].first >= 0) step.first = steps[at].first;
    }
}

void EditPlan::Widen(const std::vector<std::size_t>& edited_tokens) {
    std::vector<bool> is_widened(hunks_.size(), false);
    for (const std::size_t token : edited_tokens) {
        auto next = std::upper_bound(
            hunks_.begin(), hunks_.end(), token + 1,
            [](std::size_t place, const DiffHunk& hunk) { return place < hunk.b_begin; });
        if (next != hunks_.begin()) --next;
        is_widened[static_cast<std::size_t>(next - hunks_.begin())] = true;
    }
    constexpr std::size_t kFirstReach = 2;
    for (std::size_t at = 0; at < hunks_.size(); ++at) {
        if (!is_widened[at]) continue;
        const std::size_t reach = std::max(reaches_[at].left * 4, kFirstReach);
        reaches_[at] = {reach, reach};
    }
}

/// Whether what is put in front of the token of the base comes to stand directly behind a text
/// of the source or in front of one.
bool EditPlan::IsBesideText(std::size_t base) const {
    if (base == 0 || origins_[base - 1].first < 0) return false;
    if (IsText(base_.tokens[base - 1])) return true;
    return base < origins_.size() && IsText(base_.tokens[base]) &&
           origins_[base].first == origins_[base - 1].last + 1;
}

bool EditPlan::ChangesTextOnly() const {
    if (!is_exact_) return false;
    const auto is_in_place = [&](std::size_t base) {
        return base < origins_.size() && IsText(base_.tokens[base]) && origins_[base].first >= 0;
    };
    for (const DiffHunk& hunk : hunks_) {
        // Text that is gone may have been what opened the body; new text needs a text beside it.
        bool has_word = false;
        for (std::size_t at = hunk.b_begin; at < hunk.b_end; ++at) {
            if (!IsText(edited_.tokens[at])) return false;
            if (edited_.tokens[at].kind == TokenKind::kWord) has_word = true;
        }
        for (std::size_t at = hunk.a_begin; at < hunk.a_end; ++at) {
            if (!is_in_place(at)) return false;
        }
        if (hunk.a_begin < hunk.a_end ? !has_word : !IsBesideText(hunk.a_begin)) return false;
    }
    return true;
}

bool EditPlan::IsDoubtful(std::size_t edited_token) const {
    const auto next = std::upper_bound(
        hunks_.begin(), hunks_.end(), edited_token,
        [](std::size_t place, const DiffHunk& hunk) { return place < hunk.b_begin; });
    if (next == hunks_.begin()) return origins_[edited_token].is_doubtful;
    const DiffHunk& hunk = *(next - 1);
    if (edited_token < hunk.b_end) return false;
    const std::size_t base = edited_token - hunk.b_end + hunk.a_end;
    return base < origins_.size() && origins_[base].is_doubtful;
}

}  // namespace quorrel::html
