// What the files of JavaHelp share: their head, and the items on lines of their own of the contents
// and the index.
#pragma once

#include <initializer_list>
#include <string>
#include <string_view>

#include "project/project_state.hpp"

namespace quorrel {

/// By how much a line changes the level of the lines behind it: an opening item up, a closing
/// one and each line with "/>" down. `element` is the item's name in upper case.
[[nodiscard]] int LevelChange(std::string_view line, std::string_view element);

/// The value of an attribute of the first tag in `text` from `start` on, or nothing. The name is in
/// upper case and is compared whole, and not with what stands in quotes. A tag ends at the first
/// ">" outside of quotes; a quote that nothing closes ends there too, and without a ">" nothing is
/// read.
[[nodiscard]] std::string XmlAttribute(std::string_view text, std::size_t start,
                                       std::string_view name);

/// The "text" attribute of an item's line; without one what stands between the first ">" and the
/// next "<"; without that "Untitled".
[[nodiscard]] std::string ItemText(std::string_view line);

/// The text that stands in a file as `text`.
[[nodiscard]] std::string TextFromXml(std::string_view text, XmlForm form);
/// A text as it goes between two tags, or as the value of an attribute. The reader of JavaHelp
/// takes named references apart twice between tags and numbered ones in attributes not everywhere.
[[nodiscard]] std::string XmlContent(std::string_view text, XmlForm form);
[[nodiscard]] std::string XmlValue(std::string_view text, XmlForm form);

/// Appends `parts` and a line end.
void AppendLine(std::string& text, std::initializer_list<std::string_view> parts);

/// The lines up to the root element's tag and an empty one. `type` is the element's name in the
/// public identifier.
[[nodiscard]] std::string JavaHelpHead(std::string_view element, std::string_view type);

/// Five blanks a level.
[[nodiscard]] std::string ItemIndent(int level);

/// A caption or keyword as it goes into the "text" attribute, without blanks at the left. As typed
/// only angle brackets and double quotes are escaped. "&" stays as it is then, so the file is not
/// always well-formed XML; a quote becomes "%22", which viewers show as that.
[[nodiscard]] std::string EscapedItemText(std::string_view text, XmlForm form);

/// The address of a file in one that lies at `base`: its relative path, with slashes. What is an
/// address already stays.
[[nodiscard]] std::string AddressOf(std::string_view path, std::string_view base);

/// A blank and the attribute; nothing for an empty value.
[[nodiscard]] std::string ItemAttribute(std::string_view name, std::string_view value,
                                        XmlForm form);

}  // namespace quorrel
