// Character references of HTML.
#pragma once

#include <cstddef>
#include <optional>
#include <string_view>

namespace quorrel {

struct HtmlEntity {
    char32_t code = 0;
    std::size_t end = 0;  // byte offset behind it
};

/// The reference at `offset`, by number or by name, or nothing if the "&" there stands for
/// itself. The semicolon may be missing where no letter or digit follows.
[[nodiscard]] std::optional<HtmlEntity> EntityAt(std::string_view text, std::size_t offset);

}  // namespace quorrel
