// The data string of a contents node.
#pragma once

#include <string>
#include <string_view>

namespace quorrel {

/// The three fields of a node's Tag, each followed by "#^#".
struct NodeData {
    std::string location;  // full path of the topic, perhaps with "#" and a bookmark, or a URL
    std::string target;    // map id or alias
    std::string extra;     // icon name, or the comma text of HTML Help
};

[[nodiscard]] std::string PackNodeData(std::string_view location, std::string_view target,
                                       std::string_view extra);
/// Stops at the first field without its separator; that one and those behind it are empty.
[[nodiscard]] NodeData UnpackNodeData(std::string_view data);
/// The location alone, for those who look through many nodes. A part of `data`.
[[nodiscard]] std::string_view NodeLocation(std::string_view data);

}  // namespace quorrel
