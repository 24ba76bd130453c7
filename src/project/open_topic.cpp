#include "project/open_topic.hpp"

#include <string>

#include "app/main_form.hpp"
#include "editor/load_file.hpp"
#include "platform/text.hpp"

namespace quorrel {

void OpenTopic(MainForm& main, std::string_view location) {
    if (location.starts_with("http:") || location.starts_with("https:")) {
        main.screen.ShowMessage({"This item is linked to the remote URL: " + std::string(location),
                                 main.settings.APP_NAME, MessageButtons::kOk, MessageIcon::kNone});
        return;
    }
    std::string path(location.substr(0, location.find('#')));
    if (path.empty()) return;
    if (!Contains(path, ":")) path.insert(0, main.project.proj_path + "\\");
    main.editor.new_main_path = std::move(path);
    LoadFile(main);
}

void OpenTopicRow(MainForm& main, const ListRow& row) {
    // A copy: loading may change the table.
    OpenTopic(main, std::string(row.SubItems(topic_cell::kFullPath)));
}

void SortTopics(MainForm& main, int column) {
    TopicTables& topics = main.topics;
    ListView& table = topics.ListTopics;
    int& current = topics.current_topic_index;
    const bool is_open = current >= 1 && current <= table.Count();
    const ListRow* open = is_open ? &table.At(current) : nullptr;
    table.SortBy(column);
    if (open != nullptr) current = table.PositionOf(*open);
}

}  // namespace quorrel
