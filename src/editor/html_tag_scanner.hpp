// The attributes of a tag, one after the other, without taking them out of the source.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>

#include "editor/html_tokens.hpp"

namespace quorrel::html {

/// Offsets into the tag. Without a value `value_begin` and `value_end` are 0.
struct AttributePlace {
    std::size_t begin = 0;
    std::size_t name_end = 0;
    std::size_t value_begin = 0;
    std::size_t value_end = 0;
    std::size_t end = 0;
    char quote = 0;
};

/// The offset behind the name of a tag that starts with "<" or "</".
[[nodiscard]] std::size_t TagNameEnd(std::string_view tag);
[[nodiscard]] std::string DecodedAttributeValue(std::string_view text);

class HtmlTagScanner {
  public:
    /// `tag` may go on behind the tag's ">". `offset` is that behind the name.
    HtmlTagScanner(std::string_view tag, std::size_t offset) : tag_(tag), at_(offset) {}

    /// False at the end of the tag.
    bool Next(AttributePlace& place);
    /// The offset of the ">" once Next has given false; the size where the tag does not end.
    [[nodiscard]] std::size_t Offset() const { return at_; }

  private:
    void ScanValue(std::size_t at, AttributePlace& place);

    std::string_view tag_;
    std::size_t at_ = 0;
};

}  // namespace quorrel::html
