#include "formats/javahelp/xml_items.hpp"

#include <algorithm>

#include "platform/code_page.hpp"
#include "platform/plain_surface/html_entities.hpp"
#include "platform/text.hpp"
#include "platform/unicode.hpp"
#include "project/paths.hpp"

namespace quorrel {
namespace {

constexpr std::string_view kBlanks = " \t";

/// Takes the attributes of a tag one after the other. What is no attribute, a "/" or a piece of a
/// value that has quotes in it, is passed over.
class TagAttributes {
  public:
    TagAttributes(std::string_view text, std::size_t start)
        : text_(text), at_(text.find('<', std::min(start, text.size()))) {
        if (at_ != npos) at_ = text_.find_first_of(" \t>", at_);
    }

    /// False at the end of the tag and where it has none.
    bool Next() {
        at_ = text_.find_first_not_of(kBlanks, at_);
        if (at_ == npos || text_[at_] == '>') return false;
        const std::size_t name_end = text_.find_first_of(" \t=>", at_);
        name_ = text_.substr(at_, name_end - at_);
        value_ = {};
        at_ = text_.find_first_not_of(kBlanks, name_end);
        if (at_ == npos) return false;
        if (text_[at_] == '=') TakeValue();
        return at_ != npos;
    }
    [[nodiscard]] std::string_view Name() const { return name_; }
    [[nodiscard]] std::string_view Value() const { return value_; }
    /// The offset of the tag's ">" when Next has given false; npos where it has none.
    [[nodiscard]] std::size_t End() const { return at_; }

  private:
    void TakeValue() {
        const std::size_t begin = text_.find_first_not_of(kBlanks, at_ + 1);
        if (begin == npos) {
            at_ = npos;
            return;
        }
        const char quote = text_[begin];
        const bool is_quoted = quote == '"' || quote == '\'';
        const std::size_t close = is_quoted ? text_.find(quote, begin + 1) : npos;
        if (close != npos) {
            value_ = text_.substr(begin + 1, close - begin - 1);
            at_ = close + 1;
            return;
        }
        at_ = text_.find_first_of(is_quoted ? ">" : " \t>", begin);
        const std::size_t from = is_quoted ? begin + 1 : begin;
        value_ = text_.substr(from, at_ - from);
    }

    std::string_view text_;
    std::size_t at_;
    std::string_view name_;
    std::string_view value_;
};

}  // namespace

std::string XmlAttribute(std::string_view text, std::size_t start, std::string_view name) {
    TagAttributes attributes(text, start);
    std::string_view value;
    bool found = false;
    while (attributes.Next()) {
        if (found || UpperAscii(attributes.Name()) != name) continue;
        value = attributes.Value();
        found = true;
    }
    return attributes.End() == npos ? std::string() : std::string(value);
}

int LevelChange(std::string_view line, std::string_view element) {
    int change = 0;
    if (ContainsIgnoringAsciiCase(line, std::string("<").append(element))) ++change;
    if (Contains(line, "/>")) --change;
    if (ContainsIgnoringAsciiCase(line, std::string("</").append(element))) --change;
    return change;
}

std::string ItemText(std::string_view line) {
    std::string text = XmlAttribute(line, 0, "TEXT");
    if (text.empty()) {
        TagAttributes attributes(line, 0);
        while (attributes.Next()) continue;
        const std::string_view rest = line.substr(std::min(attributes.End(), line.size()));
        if (!rest.empty()) text = rest.substr(1, rest.find('<') - 1);
    }
    return text.empty() ? "Untitled" : text;
}

std::string TextFromXml(std::string_view text, XmlForm form) {
    if (form == XmlForm::kAsTyped) return std::string(text);
    std::string result;
    for (std::size_t at = text.find('&'); at != npos; at = text.find('&')) {
        result += text.substr(0, at);
        const std::optional<HtmlEntity> entity = EntityAt(text, at);
        const bool is_reference =
            entity && text[entity->end - 1] == ';' && !IsLoneByte(entity->code);
        if (is_reference) {
            AppendUtf8(result, entity->code);
        } else {
            result += '&';
        }
        text.remove_prefix(is_reference ? entity->end : at + 1);
    }
    return result.append(text);
}

std::string XmlContent(std::string_view text, XmlForm form) {
    if (form == XmlForm::kAsTyped) return std::string(text);
    const std::string brackets = ReplaceAll(ReplaceAll(text, "&", "&#38;"), "<", "&#60;");
    return ReplaceAll(brackets, ">", "&#62;");
}

std::string XmlValue(std::string_view text, XmlForm form) {
    if (form == XmlForm::kAsTyped) return std::string(text);
    const std::string brackets = ReplaceAll(ReplaceAll(text, "&", "&amp;"), "<", "&lt;");
    return ReplaceAll(ReplaceAll(brackets, ">", "&gt;"), "\"", "&quot;");
}

void AppendLine(std::string& text, std::initializer_list<std::string_view> parts) {
    for (const std::string_view part : parts) text += part;
    text += kLineEnd;
}

std::string JavaHelpHead(std::string_view element, std::string_view type) {
    std::string head;
    AppendLine(head, {"<?xml version='1.0' encoding='ISO-8859-1'  ?>"});
    AppendLine(head, {"<!DOCTYPE ", element});
    AppendLine(head,
               {"  PUBLIC \"-//Sun Microsystems Inc.//DTD JavaHelp ", type, " Version 1.0//EN\""});
    AppendLine(head, {"         \"http://java.sun.com/products/javahelp/", element, "_1_0.dtd\">"});
    AppendLine(head, {"<", element, " version=\"1.0\">"});
    AppendLine(head, {});
    return head;
}

std::string ItemIndent(int level) {
    return std::string(static_cast<std::size_t>(level) * 5, ' ');
}

std::string EscapedItemText(std::string_view text, XmlForm form) {
    if (form == XmlForm::kEscaped) return XmlValue(TrimLeft(text), form);
    const std::string brackets = ReplaceAll(ReplaceAll(TrimLeft(text), "<", "&lt;"), ">", "&gt;");
    return ReplaceAll(brackets, "\"", "%22");
}

std::string AddressOf(std::string_view path, std::string_view base) {
    return ReplaceAll(RelativeLocation(path, base), "\\", "/");
}

std::string ItemAttribute(std::string_view name, std::string_view value, XmlForm form) {
    if (value.empty()) return {};
    return std::string(" ").append(name).append("=\"").append(XmlValue(value, form)).append("\"");
}

}  // namespace quorrel
