// What has to be done to a source for the edits of its document.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "editor/html_tree.hpp"
#include "editor/source_composer.hpp"
#include "editor/token_diff.hpp"

namespace quorrel::html {

class EditPlan {
  public:
    /// `read` is the document as we read it from the source; `base` is the engine's.
    EditPlan(const TokenisedText& source, const TokenisedText& base, const TokenisedText& edited,
             const std::vector<DocumentToken>& read);

    /// The edits: `a` is the base, `b` the edited document.
    [[nodiscard]] const std::vector<DiffHunk>& Hunks() const { return hunks_; }
    /// Whether only words and white space are changed, each in its place in the source: then it
    /// reads as the edited document.
    [[nodiscard]] bool ChangesTextOnly() const;
    [[nodiscard]] bool IsWholeDocumentExplicit() const { return is_all_explicit_; }
    /// For each token of the edited document.
    [[nodiscard]] std::vector<EditStep> Steps() const;
    /// For each token of the source, whether an edit took it away.
    [[nodiscard]] std::vector<bool> Deleted() const { return deleted_; }

    /// How many tokens of the base before and behind an edit are written out in full.
    struct Reach {
        std::size_t left = 0;
        std::size_t right = 0;
    };
    [[nodiscard]] Reach& ReachOf(std::size_t hunk) { return reaches_[hunk]; }
    /// Has more written out around the edits that are nearest to these tokens of the edited
    /// document; and the whole document.
    void Widen(const std::vector<std::size_t>& edited_tokens);
    void WidenAll() { is_all_explicit_ = true; }

    /// Whether the token of the edited document comes from a place of the source that we read
    /// differently from the engine.
    [[nodiscard]] bool IsDoubtful(std::size_t edited_token) const;

  private:
    struct Origin {
        std::int32_t first = -1;
        std::int32_t last = -1;
        std::int32_t displaced = -1;  // the token, where it is out of order
        bool is_doubtful = false;
    };
    struct Pair {
        std::size_t base = 0;
        std::size_t edited = 0;
    };

    void FindOrigins(const std::vector<DocumentToken>& read);
    void TakeOrigin(std::size_t base, const DocumentToken& read);
    void KeepAscendingOrigins();
    void FindHunks();
    void Slide(std::size_t hunk);
    [[nodiscard]] int ScoreOf(const DiffHunk& hunk) const;
    void FindPairs();
    void FindPairsIn(const DiffHunk& hunk, bool keeps_blanks);
    [[nodiscard]] int Likeness(std::size_t base, std::size_t edited, bool keeps_blanks) const;
    void MarkDeleted(const DiffHunk& hunk);
    void PlaceOpeningTags(std::vector<EditStep>& steps) const;
    [[nodiscard]] bool IsBesideText(std::size_t base) const;
    [[nodiscard]] std::int32_t PlaceOf(const DiffHunk& hunk) const;
    [[nodiscard]] bool ReplacesBlock(const DiffHunk& hunk) const;
    [[nodiscard]] std::vector<bool> ExplicitTokens() const;

    const TokenisedText& base_;
    const TokenisedText& edited_;
    std::vector<Origin> origins_;  // for each token of the base
    std::vector<DiffHunk> hunks_;
    std::vector<Pair> pairs_;     // tokens in hunks that are changed, not replaced
    std::vector<Reach> reaches_;  // for each hunk
    std::vector<bool> deleted_;
    bool is_exact_ = false;  // we read the source as the engine does
    bool is_all_explicit_ = false;
};

}  // namespace quorrel::html
