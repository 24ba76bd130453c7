#include "platform/profile_file.hpp"

#include "platform/text.hpp"
#include "platform/text_lines.hpp"
#include "platform/unicode.hpp"

namespace quorrel {
namespace {

/// The name between "[" and the last "]" of a head line; nothing for any other line.
std::optional<std::string_view> SectionName(std::string_view line) {
    line = TrimBlanksAndTabs(line);
    if (!line.starts_with('[')) return std::nullopt;
    const std::size_t end = line.rfind(']');
    if (end == npos) return std::nullopt;
    return line.substr(1, end - 1);
}

/// The key of a "key=value" line; nothing for comments and lines without "=".
std::optional<std::string_view> KeyName(std::string_view line) {
    const std::size_t equals = line.find('=');
    if (equals == npos || TrimBlanksAndTabs(line).starts_with(';')) return std::nullopt;
    return TrimBlanksAndTabs(line.substr(0, equals));
}

/// Where a key of a section stands, in byte offsets of the text.
struct Place {
    bool section_found = false;
    std::optional<TextSpan> key_line;  // without its line end
    std::size_t end_of_section = 0;    // behind its last line that is not blank
};

Place FindKey(std::string_view text, std::string_view section, std::string_view key) {
    Place place;
    key = TrimBlanksAndTabs(key);
    TextLines lines(text);
    while (!lines.AtEnd()) {
        const std::size_t start = lines.Position();
        const std::string_view line = lines.ReadLine();
        if (const auto name = SectionName(line)) {
            if (place.section_found) break;
            place.section_found = EqualsIgnoringCase(*name, section);
            place.end_of_section = lines.Position();
            continue;
        }
        if (!place.section_found) continue;
        if (!TrimBlanksAndTabs(line).empty()) place.end_of_section = lines.Position();
        const auto name = KeyName(line);
        if (name && EqualsIgnoringCase(*name, key)) {
            place.key_line = TextSpan{start, line.size()};
            break;
        }
    }
    // A last line without a line end has its position one behind the text.
    if (place.end_of_section > text.size()) place.end_of_section = text.size();
    return place;
}

std::string_view Unquote(std::string_view value) {
    const bool quoted = value.size() >= 2 && value.front() == value.back() &&
                        (value.front() == '"' || value.front() == '\'');
    return quoted ? value.substr(1, value.size() - 2) : value;
}

std::string LineEndOf(std::string_view text) {
    const std::size_t end = text.find_first_of("\r\n");
    if (end == npos) return std::string(kLineEnd);
    return std::string(text.substr(end, text.substr(end, 2) == kLineEnd ? 2 : 1));
}

bool EndsWithLineEnd(std::string_view text) {
    return text.empty() || text.back() == '\n' || text.back() == '\r';
}

std::string ValueOf(std::string_view line) {
    return std::string(Unquote(TrimBlanksAndTabs(line.substr(line.find('=') + 1))));
}

}  // namespace

std::optional<std::string> ProfileValue(std::string_view text, std::string_view section,
                                        std::string_view key) {
    const Place place = FindKey(text, section, key);
    if (!place.key_line) return std::nullopt;
    return ValueOf(text.substr(place.key_line->offset, place.key_line->size));
}

ProfileKeys ProfileSection(std::string_view text, std::string_view section) {
    ProfileKeys keys;
    bool is_inside = false;
    TextLines lines(text);
    while (!lines.AtEnd()) {
        const std::string_view line = lines.ReadLine();
        if (const auto name = SectionName(line)) {
            if (is_inside) break;
            is_inside = EqualsIgnoringCase(*name, section);
        } else if (const auto key = KeyName(line); is_inside && key) {
            keys.try_emplace(std::string(*key), ValueOf(line));
        }
    }
    return keys;
}

std::string SetProfileValue(std::string_view text, std::string_view section, std::string_view key,
                            std::string_view new_value) {
    const Place place = FindKey(text, section, key);
    const std::string line_end = LineEndOf(text);
    // A line end would make other lines of what follows it.
    const std::string one_line = ReplaceAll(ReplaceAll(new_value, "\r", " "), "\n", " ");
    const std::size_t first = one_line.find_first_not_of(" \t");
    const std::string value = first == npos ? std::string() : one_line.substr(first);

    std::string result;
    if (place.key_line) {
        const std::string_view line = text.substr(place.key_line->offset, place.key_line->size);
        const std::size_t behind = place.key_line->offset + place.key_line->size;
        result.append(text.substr(0, place.key_line->offset));
        result.append(TrimBlanksAndTabs(line.substr(0, line.find('='))));
        return result.append("=").append(value).append(text.substr(behind));
    }
    const std::size_t at = place.section_found ? place.end_of_section : text.size();
    result.append(text.substr(0, at));
    if (!EndsWithLineEnd(result)) result += line_end;
    if (!place.section_found) result.append("[").append(section).append("]").append(line_end);
    result.append(TrimBlanksAndTabs(key)).append("=").append(value).append(line_end);
    return result.append(text.substr(at));
}

}  // namespace quorrel
