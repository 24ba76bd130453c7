// OBJECT tags are hidden from the surface: as "<!OBJECT" and "<!/OBJECT" they are inert
// declarations to it, and controls and their parameters pass through editing unharmed.
#pragma once

#include <string>
#include <string_view>

namespace quorrel {

/// Whether there is a tag to mask. Only "<OBJECT" and "<object" count, not "<Object".
[[nodiscard]] bool HasObjectTags(std::string_view html);
/// The masked names are in upper case. A masked text stays as it is.
[[nodiscard]] std::string MaskObjects(std::string_view html);
[[nodiscard]] std::string UnmaskObjects(std::string_view html);

}  // namespace quorrel
