#include "project/tag_value.hpp"

#include "platform/text.hpp"

namespace quorrel {
namespace {

std::string Join(std::string_view a, std::string_view b, std::string_view c = {},
                 std::string_view d = {}, std::string_view e = {}) {
    std::string result;
    result.reserve(a.size() + b.size() + c.size() + d.size() + e.size());
    return result.append(a).append(b).append(c).append(d).append(e);
}

std::string WriteMissing(std::string_view head, std::string_view tail, std::string_view attribute,
                         std::string_view value, TagMode mode) {
    if (mode == TagMode::kRead) return {};
    if (mode == TagMode::kWriteFlag) {
        return value == "1" ? Join(head, " ", attribute, tail) : Join(head, tail);
    }
    if (value.empty()) return Join(head, tail);
    return Join(Join(head, " "), attribute, "=", value, tail);
}

std::string Without(std::string_view text, std::string_view characters) {
    std::string result;
    result.reserve(text.size());
    for (std::size_t at = text.find_first_of(characters); at != npos;
         at = text.find_first_of(characters)) {
        result.append(text.substr(0, at));
        text.remove_prefix(at + 1);
    }
    return result.append(text);
}

}  // namespace

std::string TagValue(std::string_view text, std::size_t start, std::string_view attribute,
                     std::string_view value, TagMode mode) {
    if (start < 1 || start > text.size()) return {};
    const std::size_t end = text.find('>', start - 1);
    if (end == npos) return {};
    const std::string_view tag = text.substr(0, end + 1);
    const std::string_view behind_tag = text.substr(end);

    const std::size_t name = FindIgnoringAsciiCase(tag, attribute, start - 1);
    if (name == npos) return WriteMissing(text.substr(0, end), behind_tag, attribute, value, mode);

    std::size_t open = tag.find('=', name);
    if (open == npos) {
        if (mode != TagMode::kWriteFlag) return std::string(kAttributeOn);
        const std::string_view head = tag.substr(0, name);
        return value == "1" ? Join(head, attribute, behind_tag) : Join(head, behind_tag);
    }
    // `open` moves up to the character before the value: "=", a blank or the opening quote.
    while (open + 1 < tag.size() && tag[open + 1] == ' ') ++open;
    const bool quoted = open + 1 < tag.size() && tag[open + 1] == '"';
    if (quoted) ++open;
    std::size_t close = tag.find(quoted ? '"' : ' ', open + 1);
    if (close == npos) close = tag.find('>', open + 1);
    if (close == npos) return {};

    if (mode == TagMode::kRead) {
        const std::string_view old = tag.substr(open + 1, close - open - 1);
        // A quoted value ends at its first quote, so there is none inside.
        return quoted ? std::string(old) : Without(old, "\" ");
    }
    std::string_view tail = text.substr(close);
    if (tail.starts_with('"')) tail.remove_prefix(1);
    if (value.empty()) return Join(tag.substr(0, name), tail);
    std::string_view kept = tag.substr(0, open + 1);
    if (kept.ends_with('"')) kept.remove_suffix(1);
    return Join(kept, value, tail);
}

}  // namespace quorrel
