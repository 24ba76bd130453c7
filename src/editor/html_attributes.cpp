#include <algorithm>

#include "editor/html_references.hpp"
#include "editor/html_tag_scanner.hpp"
#include "platform/text.hpp"

namespace quorrel::html {

bool HtmlTagScanner::Next(AttributePlace& place) {
    while (at_ < tag_.size() && (IsHtmlBlank(tag_[at_]) || tag_[at_] == '/')) ++at_;
    if (at_ >= tag_.size() || tag_[at_] == '>') return false;
    place = {};
    place.begin = at_;
    // An "=" at the very start belongs to the name.
    do ++at_;
    while (at_ < tag_.size() && !IsHtmlBlank(tag_[at_]) && tag_[at_] != '/' && tag_[at_] != '>' &&
           tag_[at_] != '=');
    place.name_end = place.end = at_;
    std::size_t next = at_;
    while (next < tag_.size() && IsHtmlBlank(tag_[next])) ++next;
    if (next < tag_.size() && tag_[next] == '=') ScanValue(next + 1, place);
    return true;
}

void HtmlTagScanner::ScanValue(std::size_t at, AttributePlace& place) {
    while (at < tag_.size() && IsHtmlBlank(tag_[at])) ++at;
    const bool is_quoted = at < tag_.size() && (tag_[at] == '"' || tag_[at] == '\'');
    if (is_quoted) {
        place.quote = tag_[at];
        place.value_begin = at + 1;
        place.value_end = std::min(tag_.find(place.quote, at + 1), tag_.size());
        place.end = std::min(place.value_end + 1, tag_.size());
    } else {
        place.value_begin = at;
        while (at < tag_.size() && !IsHtmlBlank(tag_[at]) && tag_[at] != '>') ++at;
        place.value_end = place.end = at;
    }
    at_ = place.end;
}

std::string DecodedAttributeValue(std::string_view text) {
    std::string decoded;
    for (std::size_t at = 0; at < text.size();) {
        const char c = text[at];
        if (c == '&') {
            const std::size_t size = DecodeReference(text, at, ReferencePlace::kAttribute, decoded);
            if (size == 0) decoded += c;
            at += std::max<std::size_t>(size, 1);
        } else if (c == '\r') {
            decoded += '\n';
            at += text.substr(at).starts_with("\r\n") ? 2 : 1;
        } else {
            decoded += c;
            ++at;
        }
    }
    return decoded;
}

std::vector<HtmlAttribute> AttributesOf(std::string_view tag) {
    std::vector<HtmlAttribute> attributes;
    HtmlTagScanner scanner(tag, TagNameEnd(tag));
    for (AttributePlace place; scanner.Next(place);) {
        HtmlAttribute attribute;
        attribute.name = LowerAscii(tag.substr(place.begin, place.name_end - place.begin));
        attribute.value = DecodedAttributeValue(
            tag.substr(place.value_begin, place.value_end - place.value_begin));
        attribute.begin = place.begin;
        attribute.value_begin = place.value_begin;
        attribute.value_end = place.value_end;
        attribute.end = place.end;
        attribute.quote = place.quote;
        attributes.push_back(std::move(attribute));
    }
    return attributes;
}

std::size_t TagNameEnd(std::string_view tag) {
    std::size_t at = tag.starts_with("</") ? 2 : 1;
    while (at < tag.size() && !IsHtmlBlank(tag[at]) && tag[at] != '/' && tag[at] != '>') ++at;
    return std::min(at, tag.size());
}

}  // namespace quorrel::html
