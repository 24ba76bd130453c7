// The elements of a document's source by their places.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "platform/plain_surface/html_scan.hpp"

namespace quorrel {

/// Places in bytes. An end tag that is not there is empty and stands where the element ends.
struct HtmlElement {
    std::string name;  // in upper case
    std::size_t open_begin = 0;
    std::size_t open_end = 0;
    std::size_t close_begin = 0;
    std::size_t close_end = 0;
    int parent = -1;
    bool is_void = false;  // never has content, as BR
};

class HtmlOutline {
  public:
    explicit HtmlOutline(std::string_view html);

    [[nodiscard]] const std::vector<HtmlToken>& Tokens() const { return tokens_; }
    /// In the order of their start tags.
    [[nodiscard]] const std::vector<HtmlElement>& Elements() const { return elements_; }
    /// The body, also where the source has no tag of it: both tags are empty then.
    [[nodiscard]] const HtmlElement& Body() const { return body_; }
    /// The body's element, or -1 where the source has no tag of it.
    [[nodiscard]] int BodyIndex() const { return body_index_; }

    /// The element whose start tag begins at `offset`, or -1.
    [[nodiscard]] int ElementAt(std::size_t offset) const;
    /// The innermost element whose content holds both places, or -1.
    [[nodiscard]] int ElementAround(std::size_t from, std::size_t to) const;
    /// The token that has `offset` inside, not at an edge, or null.
    [[nodiscard]] const HtmlToken* TokenOver(std::size_t offset) const;

  private:
    std::vector<HtmlToken> tokens_;
    std::vector<HtmlElement> elements_;
    HtmlElement body_;
    int body_index_ = -1;
};

}  // namespace quorrel
