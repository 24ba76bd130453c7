#include "contents/node_data.hpp"

#include "platform/text.hpp"

namespace quorrel {
namespace {
constexpr std::string_view kSeparator = "#^#";
}

std::string PackNodeData(std::string_view location, std::string_view target,
                         std::string_view extra) {
    std::string data;
    data.reserve(location.size() + target.size() + extra.size() + 3 * kSeparator.size());
    for (const std::string_view field : {location, target, extra}) {
        data.append(field).append(kSeparator);
    }
    return data;
}

NodeData UnpackNodeData(std::string_view data) {
    NodeData fields;
    for (std::string* field : {&fields.location, &fields.target, &fields.extra}) {
        const std::size_t end = data.find(kSeparator);
        if (end == npos) break;
        *field = data.substr(0, end);
        data.remove_prefix(end + kSeparator.size());
    }
    return fields;
}

std::string_view NodeLocation(std::string_view data) {
    const std::size_t end = data.find(kSeparator);
    return end == npos ? std::string_view{} : data.substr(0, end);
}

}  // namespace quorrel
