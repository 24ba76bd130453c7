#include "project/find_topic.hpp"

#include "project/project_state.hpp"

namespace quorrel {
namespace {

int Position(const ListView& table, const ListRow* row) {
    return row == nullptr ? -1 : table.PositionOf(*row);
}

}  // namespace

int FindTopic(const ListView& ListTopics, std::string_view path) {
    return Position(ListTopics, ListTopics.FirstWith(topic_cell::kFullPath, path));
}

int FindAlias(const ListView& ListTopics, std::string_view alias) {
    return Position(ListTopics, ListTopics.FirstWith(topic_cell::kMapId, alias));
}

}  // namespace quorrel
