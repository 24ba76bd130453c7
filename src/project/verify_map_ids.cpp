#include "project/verify_map_ids.hpp"

#include <string>
#include <unordered_map>

#include "platform/text.hpp"
#include "project/project_state.hpp"

namespace quorrel {

void verify_map_ids(ListView& ListTopics, std::string_view Alias_Prefix) {
    // For a name that came before, the identifier that it ended with then: all on the way to it
    // are taken still, and many topics may be called "index".
    std::unordered_map<std::string, std::string> last_of_name;
    for (int i = 1; i <= ListTopics.Count(); ++i) {
        ListRow& row = ListTopics.At(i);
        if (!row.SubItems(topic_cell::kMapId).empty()) continue;
        const std::string_view file = AfterLast(row.SubItems(topic_cell::kFullPath), '\\');
        std::string candidate(TrimRight(Alias_Prefix));
        candidate += ToIdentifier(BeforeLast(file, '.', file));
        // An empty name is that of the first row still without an identifier: this one.
        if (candidate.empty()) candidate = std::to_string(i);
        std::string& last = last_of_name[candidate];
        if (!last.empty()) candidate = last;
        while (const ListRow* taken = ListTopics.FirstWith(topic_cell::kMapId, candidate)) {
            candidate += std::to_string(ListTopics.PositionOf(*taken));
        }
        last = candidate;
        row.SetSubItem(topic_cell::kMapId, std::move(candidate));
    }
}

}  // namespace quorrel
