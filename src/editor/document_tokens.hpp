// Documents compared: keys for their tokens.
#pragma once

#include <cstddef>
#include <cstdint>
#include <vector>

#include "editor/html_tree.hpp"

namespace quorrel::html {

/// The tokens of a text that a browser has serialised: each is one of the document.
[[nodiscard]] std::vector<DocumentToken> AsDocument(const std::vector<HtmlToken>& tokens);

/// Any white space equals any, but for elements in which it counts.
[[nodiscard]] std::vector<std::uint64_t> ReaderKeys(const std::vector<DocumentToken>& tokens);

/// For each token, whether white space in its place would mean nothing: only tags of inline
/// elements stand between it and the edge of a block.
[[nodiscard]] std::vector<bool> BlockEdges(const std::vector<DocumentToken>& tokens);

/// ReaderKeys without the white space that means nothing.
struct Meaning {
    std::vector<std::uint64_t> keys;
    std::vector<std::size_t> tokens;  // the token of each key
};
[[nodiscard]] Meaning MeaningOf(const std::vector<DocumentToken>& tokens);

}  // namespace quorrel::html
