#include "editor/document_tokens.hpp"

namespace quorrel::html {
namespace {

constexpr std::uint64_t kAnyBlank = 1;

/// What a token does to the white space that follows it, seen from either side.
enum class Edge { kBlock, kText, kNothing };

Edge EdgeOf(const DocumentToken& token) {
    switch (token.kind) {
        case TokenKind::kStart:
        case TokenKind::kEnd:
            if (IsBlockTag(token.name)) return Edge::kBlock;
            return IsInlineTag(token.name) ? Edge::kNothing : Edge::kText;
        case TokenKind::kDoctype:
            return Edge::kBlock;
        case TokenKind::kBlank:
        case TokenKind::kComment:
            return Edge::kNothing;
        default:
            return Edge::kText;
    }
}

/// Follows the elements in which white space counts.
class BlankWatch {
  public:
    void Pass(const DocumentToken& token) {
        if (token.name == 0 || !KeepsBlanks(token.name)) return;
        if (token.kind == TokenKind::kStart) ++depth_;
        if (token.kind == TokenKind::kEnd && depth_ > 0) --depth_;
    }
    [[nodiscard]] bool Counts() const { return depth_ > 0; }

  private:
    int depth_ = 0;
};

}  // namespace

std::vector<DocumentToken> AsDocument(const std::vector<HtmlToken>& tokens) {
    std::vector<DocumentToken> document;
    document.reserve(tokens.size());
    for (const HtmlToken& token : tokens) {
        const auto place = static_cast<std::int32_t>(document.size());
        document.push_back({token.kind, token.name, token.hash, place, place});
    }
    return document;
}

std::vector<std::uint64_t> ReaderKeys(const std::vector<DocumentToken>& tokens) {
    std::vector<std::uint64_t> keys;
    keys.reserve(tokens.size());
    BlankWatch watch;
    for (const DocumentToken& token : tokens) {
        watch.Pass(token);
        const bool is_any = token.kind == TokenKind::kBlank && !watch.Counts();
        keys.push_back(is_any ? kAnyBlank : token.hash);
    }
    return keys;
}

std::vector<bool> BlockEdges(const std::vector<DocumentToken>& tokens) {
    std::vector<bool> edges(tokens.size());
    bool is_edge = true;
    const auto pass = [&](std::size_t at) {
        if (is_edge) edges[at] = true;
        const Edge edge = EdgeOf(tokens[at]);
        if (edge != Edge::kNothing) is_edge = edge == Edge::kBlock;
    };
    for (std::size_t at = 0; at < tokens.size(); ++at) pass(at);
    is_edge = true;
    for (std::size_t at = tokens.size(); at-- > 0;) pass(at);
    return edges;
}

Meaning MeaningOf(const std::vector<DocumentToken>& tokens) {
    const std::vector<std::uint64_t> keys = ReaderKeys(tokens);
    const std::vector<bool> edges = BlockEdges(tokens);
    Meaning meaning;
    meaning.keys.reserve(tokens.size());
    meaning.tokens.reserve(tokens.size());
    for (std::size_t at = 0; at < tokens.size(); ++at) {
        if (keys[at] == kAnyBlank && edges[at]) continue;
        meaning.keys.push_back(keys[at]);
        meaning.tokens.push_back(at);
    }
    return meaning;
}

}  // namespace quorrel::html
