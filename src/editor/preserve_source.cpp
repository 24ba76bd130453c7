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
namespace {

constexpr std::string_view kMark = "\xEF\xBB\xBF";
/// How often a result that reads differently is written out more fully.
constexpr int kMostTries = 10;

class Preserver {
  public:
    Preserver(std::string_view original, std::string_view base, std::string_view edited)
        : source_(original), base_(base), edited_(edited) {}

    std::optional<std::string> Run() {
        const auto read = ParseDocument(source_.text, source_.tokens);
        if (!read) return std::nullopt;
        EditPlan plan(source_, base_, edited_, *read);
        if (plan.Hunks().empty()) return std::string(source_.text);
        target_document_ = AsDocument(edited_.tokens);
        target_ = MeaningOf(target_document_);
        for (int tries = 0; tries < kMostTries; ++tries) {
            std::string result = Composed(plan);
            const std::vector<std::size_t> wrong = Mismatches(result, plan);
            if (wrong.empty()) return result;
            if (tries + 2 == kMostTries)
                plan.WidenAll();
            else
                plan.Widen(wrong);
        }
        return std::nullopt;
    }

    [[nodiscard]] std::string WholeEngineText() const {
        return WithLineEnds(edited_.text, StyleOf(source_.text, source_.tokens).line_end);
    }

  private:
    std::string Composed(const EditPlan& plan) const {
        const SourceStyle style = StyleOf(source_.text, source_.tokens);
        const std::vector<bool> is_deleted = plan.Deleted();
        return SourceComposer(source_, edited_, style, is_deleted).Compose(plan.Steps());
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
        const std::size_t begin = hunk.b_begin - (hunk.b_begin > 0 ? 1 : 0);
        const std::size_t end = std::min(hunk.b_end + 1, target_.tokens.size());
        if (hunk.b_begin == hunk.b_end) {
            return IsDoubtful(begin, plan) || (end > 0 && IsDoubtful(end - 1, plan));
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
    std::vector<DocumentToken> target_document_;
    Meaning target_;
    bool is_read_back_ = false;
};

}  // namespace

std::string PreserveSource(std::string_view original, std::string_view base,
                           std::string_view edited) {
    if (base == edited) return std::string(original);
    constexpr std::size_t kMost = std::numeric_limits<std::int32_t>::max();
    if (std::max({original.size(), base.size(), edited.size()}) > kMost) return std::string(edited);
    const bool has_mark = original.starts_with(kMark);
    if (has_mark) original.remove_prefix(kMark.size());
    Preserver preserver(original, base, edited);
    std::string result = preserver.Run().value_or(std::string());
    if (result.empty()) result = preserver.WholeEngineText();
    return has_mark ? std::string(kMark) + result : result;
}

}  // namespace quorrel
