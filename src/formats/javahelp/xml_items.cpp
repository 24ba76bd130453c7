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

}  // namespace quorrel
