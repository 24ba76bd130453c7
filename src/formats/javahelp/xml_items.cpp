#include "formats/javahelp/xml_items.hpp"

#include "platform/text.hpp"
#include "project/tag_value.hpp"

namespace quorrel {

int LevelChange(std::string_view line, std::string_view element) {
    int change = 0;
    if (ContainsIgnoringAsciiCase(line, std::string("<").append(element))) ++change;
    if (Contains(line, "/>")) --change;
    if (ContainsIgnoringAsciiCase(line, std::string("</").append(element))) --change;
    return change;
}

std::string ItemText(std::string_view line) {
    std::string text = TagValue(line, 1, "TEXT", "", TagMode::kRead);
    const std::size_t end_of_tag = line.find('>');
    if (text.empty() && end_of_tag != npos) {
        const std::string_view rest = line.substr(end_of_tag + 1);
        text = rest.substr(0, rest.find('<'));
    }
    return text.empty() ? "Untitled" : text;
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

std::string EscapedItemText(std::string_view text) {
    const std::string brackets = ReplaceAll(ReplaceAll(TrimLeft(text), "<", "&lt;"), ">", "&gt;");
    return ReplaceAll(brackets, "\"", "%22");
}

std::string ItemAttribute(std::string_view name, std::string_view value) {
    if (value.empty()) return {};
    return std::string(" ").append(name).append("=\"").append(value).append("\"");
}

}  // namespace quorrel
