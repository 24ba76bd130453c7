#include "editor/html_tree.hpp"

#include <algorithm>

#include "editor/html_tree_builder.hpp"

namespace quorrel::html {

std::optional<std::vector<DocumentToken>> ParseDocument(std::string_view text,
                                                        const std::vector<HtmlToken>& tokens) {
    HtmlTreeBuilder builder(text, tokens);
    if (!builder.Run()) return std::nullopt;
    return builder.Serialised();
}

namespace {

class Serialiser {
  public:
    Serialiser(std::string_view text, const std::vector<HtmlToken>& tokens)
        : text_(text), tokens_(tokens) {
        result_.reserve(tokens.size() + tokens.size() / 4);
    }

    void AddTag(TokenKind kind, TagName name, std::uint64_t hash, std::int32_t token) {
        FinishText();
        result_.push_back({kind, name, hash, token, token});
    }

    void AddLeaf(std::int32_t token, std::uint64_t hash) {
        const TokenKind kind = tokens_[token].kind;
        const bool is_text = kind == TokenKind::kWord || kind == TokenKind::kBlank;
        if (is_text && !result_.empty() && result_.back().kind == kind) return Join(token);
        FinishText();
        result_.push_back({kind, 0, hash, token, token});
    }

    std::vector<DocumentToken> Take() {
        FinishText();
        return std::move(result_);
    }

  private:
    /// Text that only tokens without a meaning stand between is one word in the document.
    void Join(std::int32_t token) {
        DocumentToken& whole = result_.back();
        if (joined_.empty()) joined_ = Source(whole.first);
        joined_ += Source(token);
        // A blank stays the one it was: what stands between may be the end of the body.
        if (whole.kind == TokenKind::kWord && token > whole.last) whole.last = token;
    }

    void FinishText() {
        if (joined_.empty()) return;
        result_.back().hash = HashOfText(joined_, result_.back().kind);
        joined_.clear();
    }

    std::string_view Source(std::int32_t token) const {
        return text_.substr(tokens_[token].begin, tokens_[token].end - tokens_[token].begin);
    }

    std::string_view text_;
    const std::vector<HtmlToken>& tokens_;
    std::vector<DocumentToken> result_;
    std::string joined_;  // the text of the last token if it was joined
};

}  // namespace

std::vector<DocumentToken> HtmlTreeBuilder::Serialised() const {
    Serialiser result(text_, tokens_);
    NodeId at = nodes_[kDocument].first;
    while (at != kNone) {
        const Node& node = nodes_[at];
        if (node.is_element) {
            result.AddTag(TokenKind::kStart, node.name, node.hash, node.token);
            if (node.first != kNone) {
                at = node.first;
                continue;
            }
        } else {
            result.AddLeaf(node.token, node.hash);
            for (std::int32_t token = node.token + 1; token <= node.end_token; ++token) {
                result.AddLeaf(token, tokens_[token].hash);
            }
        }
        while (true) {
            const Node& done = nodes_[at];
            if (done.is_element && !IsVoidElement(done.name)) {
                result.AddTag(TokenKind::kEnd, done.name, HashOfEndTag(done.name), done.end_token);
            }
            if (done.next != kNone || done.parent == kNone) break;
            at = done.parent;
            if (at == kDocument) return result.Take();
        }
        at = nodes_[at].next;
    }
    return result.Take();
}

}  // namespace quorrel::html
