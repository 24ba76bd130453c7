#include "editor/surface_limits.hpp"

#include <algorithm>
#include <cstddef>

#include "editor/html_tokens.hpp"
#include "editor/html_tree.hpp"
#include "editor/html_tree_builder.hpp"

namespace quorrel {
namespace {

// Measured with the engine's software drawing on two busy cores, from the call to the document
// that can be edited, and from a key to the letter:
//   100,000 elements in paragraphs (3 MB)      5 to 9 s, 0.7 s
//   200,000                                     13 s, 1.9 s
//   400,000                                     32 s, 4.6 s
//   20 MB of text in paragraphs                 16 s, 0.2 s
//   20,000 elements in one paragraph            1.3 s, 0.3 s
//   100,000                                     5.8 s, 3.7 s
//   200,000                                     14 s, 11 s; a million end the engine
//   5 MB of text in one paragraph               5 to 15 s, 0.9 s
//   60,000 elements within each other           34 s
//   100,000                                     57 to 100 s
// A page is not waited for longer than 15 s. A hundred bytes of text cost as much as an element.
constexpr std::size_t kMostElements = 100'000;
constexpr std::size_t kMostInBlock = 20'000;
constexpr std::size_t kBytesOfElement = 100;
// Of the source with all that is not shown; it travels to the engine and back as a whole.
constexpr std::size_t kMostBytes = std::size_t{32} << 20;

/// Whether the element begins lines of its own, so that an edit beside it leaves it alone.
bool IsBlock(html::TagName name) {
    return html::IsSpecial(name) && !html::IsVoidElement(name);
}

}  // namespace

bool FitsSurface(std::string_view text) {
    using namespace html;
    if (text.size() > kMostBytes) return false;
    const std::vector<HtmlToken> tokens = HtmlTokens(text);
    // Nothing comes of what would be blown up by the rules of HTML, and of deep nesting: for each
    // tag these look at the elements that are open.
    const auto document = ParseDocument(text, tokens);
    if (!document) return false;
    std::size_t size = 0;
    std::size_t in_block = 0;
    for (const DocumentToken& token : *document) {
        const bool is_tag = token.kind == TokenKind::kStart || token.kind == TokenKind::kEnd;
        if (is_tag && IsBlock(token.name)) in_block = 0;
        std::size_t cost = 0;
        if (token.kind == TokenKind::kStart) {
            cost = kBytesOfElement;
        } else if (!is_tag && token.first >= 0) {
            const auto last = static_cast<std::size_t>(token.last);
            cost = tokens[last].end - tokens[static_cast<std::size_t>(token.first)].begin;
        }
        size += cost;
        in_block += cost;
        if (size > kMostElements * kBytesOfElement || in_block > kMostInBlock * kBytesOfElement) {
            return false;
        }
    }
    return true;
}

std::string_view TooLargeMessage() {
    return "This topic is too large to be edited here.\n\nThe tab \"HTML Source\" shows the whole "
           "of it; it can be edited and saved there. Divided into several topics it can be edited "
           "here again.";
}

}  // namespace quorrel
