#include "editor/object_mask.hpp"

#include "platform/text.hpp"

namespace quorrel {

bool HasObjectTags(std::string_view html) {
    return Contains(html, "<OBJECT") || Contains(html, "<object");
}

std::string MaskObjects(std::string_view html) {
    std::string text = ReplaceAll(html, "<OBJECT", "<!OBJECT");
    text = ReplaceAll(text, "</OBJECT", "<!/OBJECT");
    text = ReplaceAll(text, "<object", "<!OBJECT");
    return ReplaceAll(text, "</object", "<!/OBJECT");
}

std::string UnmaskObjects(std::string_view html) {
    // A closing tag alone is left as it is.
    if (!Contains(html, "<!OBJECT")) return std::string(html);
    return ReplaceAll(ReplaceAll(html, "<!OBJECT", "<OBJECT"), "<!/OBJECT", "</OBJECT");
}

}  // namespace quorrel
