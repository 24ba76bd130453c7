// Writes the edited document in the words of the source.
#pragma once

#include <cstdint>
#include <map>
#include <string>
#include <string_view>
#include <vector>

#include "editor/html_tokens.hpp"
#include "editor/source_spelling.hpp"

namespace quorrel::html {

/// A text and its tokens.
struct TokenisedText {
    explicit TokenisedText(std::string_view source) : text(source), tokens(HtmlTokens(source)) {}

    [[nodiscard]] std::string_view Of(std::size_t token) const {
        return text.substr(tokens[token].begin, tokens[token].end - tokens[token].begin);
    }

    std::string_view text;
    std::vector<HtmlToken> tokens;
};

/// What becomes of a token of the edited document.
struct EditStep {
    enum class Action : std::uint8_t {
        kKeep,    // it was there: as the source writes it
        kPatch,   // it is there in another form
        kNew,     // written as the engine writes it
        kNewText  // the same, in the place of something alike: no lines of its own
    };
    Action action = Action::kKeep;
    // What the engine added by itself is written too, because an edit stands near.
    bool is_explicit = false;
    // The tokens of the source; -1 where the engine had added it by itself. Of something new,
    // `first` is the token that it stands in the place of; -1 for none.
    std::int32_t first = -1;
    std::int32_t last = -1;
    // Where the source has it elsewhere, as text that the engine moves out of a table.
    std::int32_t displaced = -1;
};
[[nodiscard]] inline bool IsNew(const EditStep& step) {
    return step.action == EditStep::Action::kNew || step.action == EditStep::Action::kNewText;
}

class SourceComposer {
  public:
    /// `is_deleted` says it for each token of the source.
    SourceComposer(const TokenisedText& source, const TokenisedText& edited,
                   const SourceStyle& style, const std::vector<bool>& is_deleted)
        : source_(source), edited_(edited), style_(style), is_deleted_(is_deleted) {}

    [[nodiscard]] std::string Compose(const std::vector<EditStep>& steps);

  private:
    void FindDisplaced(const std::vector<EditStep>& steps);
    void CopyLeftOut(std::size_t token);
    [[nodiscard]] std::vector<std::size_t> OrderOf(const std::vector<EditStep>& steps) const;
    void Append(std::string_view text);
    /// What the engine left out stays where it is, unless the stretch is written out.
    void CopyUpTo(std::size_t token, bool is_explicit);
    void Keep(std::size_t token, const EditStep& step);
    void WriteNew(std::size_t token, bool has_layout);
    [[nodiscard]] std::string TextOf(std::size_t token);
    [[nodiscard]] std::string CommentOf(std::size_t token);
    void BreakLine();
    void EndRun(std::size_t last_token);
    [[nodiscard]] bool IsAtLineStart() const;
    [[nodiscard]] std::string Indent() const;
    [[nodiscard]] bool LineEndFollows() const;
    [[nodiscard]] bool IsLineFeedToDouble(std::size_t token) const;

    const TokenisedText& source_;
    const TokenisedText& edited_;
    const SourceStyle& style_;
    const std::vector<bool>& is_deleted_;
    std::string result_;
    std::size_t line_start_ = 0;  // in result_
    std::size_t at_ = 0;          // the next token of the source
    std::size_t next_kept_ = 0;   // the next token of the source that is kept
    // By the token of the source: the token of the edited document that replaces it where it
    // stands, or -1 if it is written in its place in the document.
    std::map<std::size_t, std::ptrdiff_t> displaced_;
    int keeps_blanks_ = 0;  // elements around in which they count
    std::map<std::string, std::string_view, std::less<>> declarations_;  // by what they hold
    bool knows_declarations_ = false;
};

}  // namespace quorrel::html
