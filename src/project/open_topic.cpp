#include "project/open_topic.hpp"

#include <string>

#include "app/main_form.hpp"
#include "editor/load_file.hpp"
#include "platform/text.hpp"
#include "project/paths.hpp"
#include "project/topic_rows.hpp"

namespace quorrel {

void OpenTopic(MainForm& main, std::string_view location) {
    if (IsAddress(location) || Contains(location, "http:")) {
        main.screen.ShowMessage({"This item is linked to the remote URL: " + std::string(location),
                                 main.settings.APP_NAME, MessageButtons::kOk, MessageIcon::kNone});
        return;
    }
    std::string path(location.substr(0, location.find('#')));
    if (path.empty()) return;
    if (!IsFullPath(path)) path.insert(0, main.project.proj_path + "\\");
    main.editor.new_main_path = std::move(path);
    LoadFile(main);
}

void OpenTopicRow(MainForm& main, const ListRow& row) {
    // A copy: loading may change the table.
    OpenTopic(main, std::string(row.SubItems(topic_cell::kFullPath)));
}

void SortTopics(MainForm& main, int column) {
    const OpenRowKeeper keeper(main.topics);
    main.topics.ListTopics.SortBy(column);
}

}  // namespace quorrel
