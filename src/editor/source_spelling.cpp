#include "editor/source_spelling.hpp"

#include <algorithm>
#include <array>
#include <cstdint>

#include "editor/html_references.hpp"
#include "editor/html_tag_scanner.hpp"
#include "platform/text.hpp"

namespace quorrel::html {
namespace {

bool IsUnquotable(std::string_view value) {
    return !value.empty() && std::all_of(value.begin(), value.end(), [](char c) {
        const char lower = LowerAscii(c);
        return (lower >= 'a' && lower <= 'z') || (c >= '0' && c <= '9') ||
               std::string_view("#%._:-").find(c) != npos;
    });
}

const HtmlAttribute* Find(const std::vector<HtmlAttribute>& attributes, std::string_view name) {
    const auto found =
        std::find_if(attributes.begin(), attributes.end(),
                     [&](const HtmlAttribute& attribute) { return attribute.name == name; });
    return found == attributes.end() ? nullptr : &*found;
}

std::string_view RawValue(std::string_view tag, const HtmlAttribute& attribute) {
    return tag.substr(attribute.value_begin, attribute.value_end - attribute.value_begin);
}

/// The attribute under its name in the source, with the value that the engine gives it.
std::string WithValue(std::string_view source, const HtmlAttribute& old, std::string_view value) {
    const std::size_t name_size = old.name.size();
    std::string text(source.substr(old.begin, name_size));
    if (old.value_begin != 0 && old.quote == 0 && IsUnquotable(value)) {
        return text.append("=").append(value);
    }
    const bool keeps_quote = old.quote == '\'' && value.find('\'') == npos;
    const char quote = keeps_quote ? '\'' : '"';
    return text.append("=").append(1, quote).append(value).append(1, quote);
}

/// A character of a word as it is written and what it means.
struct Unit {
    std::string_view raw;
    std::string meaning;
};

std::vector<Unit> UnitsOf(std::string_view word) {
    std::vector<Unit> units;
    for (std::size_t at = 0; at < word.size();) {
        Unit unit;
        std::size_t size = 0;
        if (word[at] == '&') {
            size = DecodeReference(word, at, ReferencePlace::kText, unit.meaning);
        }
        if (size == 0) {
            do ++size;
            while (at + size < word.size() &&
                   (static_cast<unsigned char>(word[at + size]) & 0xC0) == 0x80);
            unit.meaning = word.substr(at, size);
        }
        unit.raw = word.substr(at, size);
        units.push_back(std::move(unit));
        at += size;
    }
    return units;
}

/// An "&" or "<" that stands for itself would not do so in front of other characters.
std::size_t SafePrefix(const std::vector<Unit>& units, std::size_t count) {
    constexpr std::size_t kLongestReference = 40;
    const std::size_t from = count > kLongestReference ? count - kLongestReference : 0;
    for (std::size_t at = from; at < count; ++at) {
        const std::string_view raw = units[at].raw;
        const bool is_open = raw.starts_with('&') && !raw.ends_with(';');
        if (is_open || raw == "<") return at;
    }
    return count;
}

}  // namespace

SourceStyle StyleOf(std::string_view source, const std::vector<HtmlToken>& tokens) {
    constexpr std::array<std::string_view, 3> kLineEnds = {"\r\n", "\n", "\r"};
    std::array<std::size_t, 3> counts{};
    for (std::size_t at = 0; (at = source.find_first_of("\r\n", at)) != npos; ++at) {
        if (source.substr(at).starts_with("\r\n")) {
            ++counts[0];
            ++at;
        } else {
            ++counts[source[at] == '\n' ? 1 : 2];
        }
    }
    std::size_t tags = 0;
    std::size_t upper = 0;
    for (const HtmlToken& token : tokens) {
        if (token.kind != TokenKind::kStart) continue;
        const char first = source[token.begin + 1];
        ++tags;
        if (first >= 'A' && first <= 'Z') ++upper;
    }
    const auto most = std::max_element(counts.begin(), counts.end());
    SourceStyle style;
    style.has_lines = *most > 0;
    if (style.has_lines)
        style.line_end = kLineEnds[static_cast<std::size_t>(most - counts.begin())];
    style.has_upper_case_tags = tags > 0 && upper * 10 >= tags * 9;
    return style;
}

std::string WithLineEnds(std::string_view text, std::string_view line_end) {
    if (text.find_first_of("\r\n") == npos) return std::string(text);
    const std::string escaped = ReplaceAll(text, "\r", "&#13;");
    return line_end == "\n" ? escaped : ReplaceAll(escaped, "\n", line_end);
}

std::string NewTag(std::string_view engine, const SourceStyle& style) {
    if (!style.has_upper_case_tags) return WithLineEnds(engine, style.line_end);
    const std::size_t name_end = TagNameEnd(engine);
    return UpperAscii(engine.substr(0, name_end)) +
           WithLineEnds(engine.substr(name_end), style.line_end);
}

std::string PatchedTag(std::string_view source, std::string_view engine) {
    const std::vector<HtmlAttribute> old = AttributesOf(source);
    const std::vector<HtmlAttribute> wanted = AttributesOf(engine);
    std::size_t at = TagNameEnd(source);
    std::string text(source.substr(0, at));
    for (const HtmlAttribute& attribute : old) {
        const HtmlAttribute* now = Find(wanted, attribute.name);
        if (now != nullptr) {
            const bool is_double = Find(old, attribute.name) != &attribute;
            const bool is_kept = is_double || now->value == attribute.value;
            text += source.substr(at, attribute.begin - at);
            text +=
                is_kept
                    ? std::string(source.substr(attribute.begin, attribute.end - attribute.begin))
                    : WithValue(source, attribute, RawValue(engine, *now));
        }
        at = attribute.end;
    }
    for (const HtmlAttribute& attribute : wanted) {
        if (Find(old, attribute.name) != nullptr) continue;
        text += ' ';
        text += engine.substr(attribute.begin, attribute.end - attribute.begin);
    }
    return text.append(source.substr(at));
}

std::string PatchedWord(std::string_view source, std::string_view engine) {
    constexpr std::size_t kLongest = 10'000;
    if (std::max(source.size(), engine.size()) > kLongest) return std::string(engine);
    const std::vector<Unit> old = UnitsOf(source);
    const std::vector<Unit> now = UnitsOf(engine);
    const std::size_t shorter = std::min(old.size(), now.size());
    std::size_t prefix = 0;
    while (prefix < shorter && old[prefix].meaning == now[prefix].meaning) ++prefix;
    prefix = SafePrefix(old, prefix);
    std::size_t suffix = 0;
    while (suffix < shorter - prefix &&
           old[old.size() - 1 - suffix].meaning == now[now.size() - 1 - suffix].meaning) {
        ++suffix;
    }
    std::string text;
    for (std::size_t at = 0; at < prefix; ++at) text += old[at].raw;
    for (std::size_t at = prefix; at < now.size() - suffix; ++at) text += now[at].raw;
    for (std::size_t at = old.size() - suffix; at < old.size(); ++at) text += old[at].raw;
    return text;
}

std::string NewComment(std::string_view engine) {
    const std::string_view data = CommentData(engine);
    if (data.find('>') != npos) return std::string(engine);
    const auto names_object = [&](std::string_view name) {
        return data.starts_with(name) &&
               (data.size() == name.size() || IsHtmlBlank(data[name.size()]));
    };
    const bool is_section = data.size() > 4 && data.starts_with("- ") && data.ends_with(" -");
    if (!is_section && !names_object("OBJECT") && !names_object("/OBJECT")) {
        return std::string(engine);
    }
    return std::string("<!").append(data).append(">");
}

}  // namespace quorrel::html
