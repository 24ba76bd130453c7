#include "project/verify_map_ids.hpp"

#include <optional>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/text.hpp"
#include "platform/unicode.hpp"
#include "project/project_state.hpp"

namespace quorrel {
namespace {

/// Makes identifiers for several rows, which get them all at the end: a table that is sorted by
/// identifiers would move its rows in between.
class MapIdMaker {
  public:
    explicit MapIdMaker(const TopicTables& topics) : topics_(topics) {}

    [[nodiscard]] std::string Free(std::string candidate) const {
        while (const auto row = BearerOf(candidate)) candidate += std::to_string(*row);
        return candidate;
    }
    /// An identifier for the topic with this path and row number.
    [[nodiscard]] std::string ForFile(std::string_view path, int number,
                                      std::string_view Alias_Prefix) {
        const std::string_view file = AfterLast(path, '\\');
        std::string name(TrimRight(Alias_Prefix));
        name += ToIdentifier(BeforeLast(file, '.', file));
        // An empty name is that of the first row still without an identifier: this one.
        if (name.empty()) name = std::to_string(number);
        // All on the way to the identifier that a name ended with before are taken still, and many
        // topics may be called "index".
        std::string& last = last_of_name_[name];
        last = Free(last.empty() ? name : last);
        return last;
    }
    void Give(ListRow& topic, std::string id) {
        given_.emplace(id, topics_.ListTopics.PositionOf(topic));
        gifts_.emplace_back(&topic, std::move(id));
    }
    void HandOut(ListView& ListTopics) {
        const int sort_column = ListTopics.SortColumn();
        const bool moves = sort_column == topic_cell::kMapId && !gifts_.empty();
        if (moves) ListTopics.SortBy(ListView::kUnsorted);
        for (auto& [topic, id] : gifts_) topic->SetSubItem(topic_cell::kMapId, std::move(id));
        if (moves) ListTopics.SortBy(sort_column);
    }

  private:
    /// The number of the row that has the identifier.
    [[nodiscard]] std::optional<int> BearerOf(std::string_view id) const {
        const ListView& topics = topics_.ListTopics;
        if (const ListRow* topic = topics.FirstWith(topic_cell::kMapId, id)) {
            return topics.PositionOf(*topic);
        }
        if (const auto found = given_.find(id); found != given_.end()) return found->second;
        const ListRow* alias = topics_.ListAliases.FirstWith(0, id);
        if (alias == nullptr) return std::nullopt;
        return topics_.ListAliases.PositionOf(*alias);
    }

    const TopicTables& topics_;
    std::unordered_map<std::string, std::string> last_of_name_;
    std::unordered_map<std::string, int, IgnoringCaseHash, IgnoringCaseEqual> given_;
    std::vector<std::pair<ListRow*, std::string>> gifts_;
};

}  // namespace

std::string FreeMapId(const TopicTables& topics, std::string candidate) {
    return MapIdMaker(topics).Free(std::move(candidate));
}

std::string MapIdFor(const TopicTables& topics, std::string_view path,
                     std::string_view Alias_Prefix) {
    return MapIdMaker(topics).ForFile(path, topics.ListTopics.Count() + 1, Alias_Prefix);
}

void verify_map_ids(TopicTables& topics, std::string_view Alias_Prefix) {
    MapIdMaker maker(topics);
    ListView& table = topics.ListTopics;
    for (int i = 1; i <= table.Count(); ++i) {
        ListRow& topic = table.At(i);
        if (!topic.SubItems(topic_cell::kMapId).empty()) continue;
        maker.Give(topic, maker.ForFile(topic.SubItems(topic_cell::kFullPath), i, Alias_Prefix));
    }
    maker.HandOut(table);
}

int SeparateMapIds(TopicTables& topics) {
    MapIdMaker maker(topics);
    ListView& table = topics.ListTopics;
    int count = 0;
    for (int i = 1; i <= table.Count(); ++i) {
        ListRow& topic = table.At(i);
        const std::string& id = topic.SubItems(topic_cell::kMapId);
        if (id.empty()) continue;
        const ListRow* const bearer = table.FirstWithExactly(topic_cell::kMapId, id);
        // A page that a map names twice is one topic, as is the bearer itself.
        const bool is_same = EqualsIgnoringCase(bearer->SubItems(topic_cell::kFullPath),
                                                topic.SubItems(topic_cell::kFullPath));
        if (is_same) continue;
        maker.Give(topic, maker.Free(id));
        ++count;
    }
    maker.HandOut(table);
    return count;
}

}  // namespace quorrel
