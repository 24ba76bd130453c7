#include "project/verify_map_ids.hpp"

#include <string>

#include "platform/text.hpp"
#include "project/project_state.hpp"

namespace quorrel {

void verify_map_ids(ListView& ListTopics, std::string_view Alias_Prefix) {
    for (int i = 1; i <= ListTopics.Count(); ++i) {
        ListRow& row = ListTopics.At(i);
        if (!row.SubItems(topic_cell::kMapId).empty()) continue;
        const std::string_view file = AfterLast(row.SubItems(topic_cell::kFullPath), '\\');
        std::string candidate(TrimRight(Alias_Prefix));
        candidate += ToIdentifier(BeforeLast(file, '.', file));
        while (const ListRow* taken = ListTopics.FirstWith(topic_cell::kMapId, candidate)) {
            candidate += std::to_string(ListTopics.PositionOf(*taken));
        }
        row.SetSubItem(topic_cell::kMapId, std::move(candidate));
    }
}

}  // namespace quorrel
