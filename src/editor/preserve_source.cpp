#include "editor/preserve_source.hpp"

#include <algorithm>
#include <cstdint>
#include <limits>
#include <optional>
#include <vector>

#include "editor/document_tokens.hpp"
#include "editor/edit_plan.hpp"
#include "editor/source_composer.hpp"
#include "editor/token_diff.hpp"

namespace quorrel {
namespace html {
namespace {

constexpr std::string_view kMark = "\xEF\xBB\xBF";
/// How often a result that reads differently is written out more fully.
constexpr int kMostTries = 10;
/// How many bytes may be read again to have less of them written out.
constexpr std::size_t kNarrowingWork = 8'000'000;

class Preserver {
  public:
    Preserver(std::string_view original, std::string_view base, std::string_view edited)
        : source_(original),
          base_(base),
          edited_(edited),
          style_(StyleOf(source_.text, source_.tokens)) {}

    std::optional<std::string> Run() {
        const auto read = ParseDocument(source_.text, source_.tokens);
        if (!read) return std::nullopt;
        EditPlan plan(source_, base_, edited_, *read);
        if (plan.Hunks().empty()) return std::string(source_.text);
        if (plan.ChangesTextOnly()) return Composed(plan);
        target_document_ = AsDocument(edited_.tokens);
        target_ = MeaningOf(target_document_);
        for (int tries = 1; tries <= kMostTries; ++tries) {
            std::string result = Composed(plan);
            const std::vector<std::size_t> wrong = Mismatches(result, plan);
            if (wrong.empty()) return tries == 1 ? result : Narrowed(plan, std::move(result));
            if (tries + 1 == kMostTries) {
                plan.WidenAll();
            } else {
                plan.Widen(wrong);
            }
        }
        return std::nullopt;
    }

    /// With the line feed doubled that a browser passes over.
    [[nodiscard]] std::string WholeEngineText() const {
        std::string text;
        for (std::size_t at = 0; at < edited_.tokens.size(); ++at) {
            const bool is_passed_over = at > 0 && edited_.Of(at).starts_with('\n') &&
                                        PassesOverLineFeed(edited_.tokens[at - 1]);
            if (is_passed_over) text += style_.line_end;
            text += WithLineEnds(edited_.Of(at), style_.line_end);
        }
        return text;
    }

  private:
    /// Takes back what was written out more than need be, as far as that is quickly found.
    std::string Narrowed(EditPlan& plan, std::string result) {
        if (plan.IsWholeDocumentExplicit()) return result;
        std::size_t checks = std::clamp<std::size_t>(kNarrowingWork / (result.size() + 1), 4, 100);
        for (std::size_t hunk = 0; hunk < plan.Hunks().size(); ++hunk) {
            NarrowSide(plan, plan.ReachOf(hunk).left, checks, result);
            NarrowSide(plan, plan.ReachOf(hunk).right, checks, result);
        }
        return result;
    }

    /// Looks for the smallest reach that will do, 0 first and then half by half.
    void NarrowSide(EditPlan& plan, std::size_t& reach, std::size_t& checks, std::string& result) {
        std::size_t good = reach;
        std::size_t bad = 0;
        for (std::size_t next = 0; good > 0 && checks > 0; next = bad + (good - bad) / 2) {
            if (next == bad && next > 0) break;
            --checks;
            reach = next;
            std::string narrower = Composed(plan);
            const bool is_good = Mismatches(narrower, plan).empty();
            (is_good ? good : bad) = next;
            if (is_good) result = std::move(narrower);
            if (good == bad + 1) break;
        }
        reach = good;
    }

    std::string Composed(const EditPlan& plan) const {
        const std::vector<bool> is_deleted = plan.Deleted();
        return SourceComposer(source_, edited_, style_, is_deleted).Compose(plan.Steps());
    }

    /// The tokens of the edited document that a browser would not find in the result.
    std::vector<std::size_t> Mismatches(const std::string& result, const EditPlan& plan) {
        const TokenisedText tokenised(result);
        const auto read = ParseDocument(result, tokenised.tokens);
        if (!read) return {0};
        const Meaning meaning = MeaningOf(*read);
        if (meaning.keys == target_.keys) return {};
        ReadTargetBack();
        if (meaning.keys == target_.keys) return {};
        std::vector<std::size_t> wrong;
        for (const DiffHunk& hunk : DiffOf(meaning.keys, target_.keys)) {
            if (IsExplained(hunk, plan)) continue;
            wrong.push_back(EditedToken(hunk.b_begin));
        }
        return wrong;
    }

    /// Editing can make what no source gives, such as a list in a paragraph: the result is then
    /// as good as the engine's own text if both read the same.
    void ReadTargetBack() {
        if (is_read_back_) return;
        is_read_back_ = true;
        const auto read = ParseDocument(edited_.text, edited_.tokens);
        if (!read) return;
        target_document_ = *read;
        target_ = MeaningOf(target_document_);
    }

    std::size_t EditedToken(std::size_t key) const {
        std::size_t at =
            key < target_.tokens.size() ? target_.tokens[key] : target_document_.size();
        while (at-- > 0) {
            if (target_document_[at].first >= 0) {
                return static_cast<std::size_t>(target_document_[at].last);
            }
        }
        return 0;
    }

    /// A place that our reading of the untouched source had differently from the engine's too.
    bool IsExplained(const DiffHunk& hunk, const EditPlan& plan) const {
        if (hunk.b_begin == hunk.b_end) {
            const bool is_behind_doubtful = hunk.b_begin > 0 && IsDoubtful(hunk.b_begin - 1, plan);
            return is_behind_doubtful || IsDoubtful(hunk.b_begin, plan);
        }
        for (std::size_t key = hunk.b_begin; key < hunk.b_end; ++key) {
            if (!IsDoubtful(key, plan)) return false;
        }
        return true;
    }

    bool IsDoubtful(std::size_t key, const EditPlan& plan) const {
        if (key >= target_.tokens.size()) return false;
        const std::int32_t token = target_document_[target_.tokens[key]].first;
        return token >= 0 && plan.IsDoubtful(static_cast<std::size_t>(token));
    }

    TokenisedText source_;
    TokenisedText base_;
    TokenisedText edited_;
    SourceStyle style_;
    std::vector<DocumentToken> target_document_;
    Meaning target_;
    bool is_read_back_ = false;
};

}  // namespace
}  // namespace html

std::string PreserveSource(std::string_view original, std::string_view base,
                           std::string_view edited) {
    if (base == edited) return std::string(original);
    constexpr std::size_t kMost = std::numeric_limits<std::int32_t>::max();
    if (std::max({original.size(), base.size(), edited.size()}) > kMost) return std::string(edited);
    const bool has_mark = original.starts_with(html::kMark);
    if (has_mark) original.remove_prefix(html::kMark.size());
    html::Preserver preserver(original, base, edited);
    std::optional<std::string> result = preserver.Run();
    if (!result) result = preserver.WholeEngineText();
    return has_mark ? std::string(html::kMark) + *result : *result;
}

}  // namespace quorrel
