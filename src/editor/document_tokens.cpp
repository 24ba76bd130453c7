#include "editor/document_tokens.hpp"

namespace quorrel {
namespace {

constexpr std::uint64_t kAnyBlank = 1;

/// Whether white space beside the token is without meaning.
bool SwallowsBlanks(const DocumentToken& token) {
    switch (token.kind) {
        case TokenKind::kStart:
        case TokenKind::kEnd:
            return IsBlockTag(token.name);
        case TokenKind::kComment:
        case TokenKind::kDoctype:
            return true;
        default:
            return false;
    }
}

/// Follows the elements in which white space counts.
class BlankWatch {
  public:
    void Pass(const DocumentToken& token) {
        if (!KeepsBlanks(token.name)) return;
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

std::vector<std::uint64_t> LooseKeys(const std::vector<DocumentToken>& tokens) {
    std::vector<std::uint64_t> keys;
    keys.reserve(tokens.size());
    for (const DocumentToken& token : tokens) {
        keys.push_back(token.kind == TokenKind::kBlank ? kAnyBlank : token.hash);
    }
    return keys;
}

std::vector<std::uint64_t> ExactKeys(const std::vector<DocumentToken>& tokens) {
    std::vector<std::uint64_t> keys = LooseKeys(tokens);
    BlankWatch watch;
    for (std::size_t at = 0; at < tokens.size(); ++at) {
        watch.Pass(tokens[at]);
        if (watch.Counts()) keys[at] = tokens[at].hash;
    }
    return keys;
}

Meaning MeaningOf(const std::vector<DocumentToken>& tokens) {
    const std::vector<std::uint64_t> keys = ExactKeys(tokens);
    Meaning meaning;
    meaning.keys.reserve(tokens.size());
    meaning.tokens.reserve(tokens.size());
    for (std::size_t at = 0; at < tokens.size(); ++at) {
        if (keys[at] == kAnyBlank) {
            const bool is_edge = at == 0 || at + 1 == tokens.size();
            if (is_edge || SwallowsBlanks(tokens[at - 1]) || SwallowsBlanks(tokens[at + 1]))
                continue;
        }
        meaning.keys.push_back(keys[at]);
        meaning.tokens.push_back(at);
    }
    return meaning;
}

}  // namespace quorrel
