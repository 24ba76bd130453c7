#include "editor/load_file.hpp"

#include "app/main_form.hpp"
#include "platform/text.hpp"
#include "project/side_files.hpp"

namespace quorrel {
namespace {

constexpr std::string_view kWorkingCopy = ".tmp.htm";

/// The topic's path: `path` without the ending of a working copy.
std::string TopicPath(std::string_view path) {
    return std::string(path.substr(0, path.find(kWorkingCopy)));
}

std::string FileToLoad(const MainForm& main) {
    const std::string topic = TopicPath(main.editor.new_main_path);
    const ListRow* row = main.topics.ListTopics.FirstWith(topic_cell::kFullPath, topic);
    const bool has_copy = row != nullptr && row->SubItems(topic_cell::kModified) == "1";
    const std::string copy = topic + std::string(kWorkingCopy);
    const std::string& wanted = has_copy ? copy : topic;
    if (main.files.FileExists(wanted)) return wanted;
    return has_copy ? topic : copy;
}

}  // namespace

void SyncTopicSelection(MainForm& main) {
    ListView& table = main.topics.ListTopics;
    ListRow* row = table.FirstWith(topic_cell::kFullPath, TopicPath(main.editor.main_path));
    main.topics.current_topic_index = row == nullptr ? 0 : table.PositionOf(*row);
    if (row != nullptr) table.Select(row);
    StatusBar& status = main.window.StatusBar1;
    const ListRow* selected = table.SelectedItem();
    status.SetPanel(
        2, selected == nullptr ? std::string() : main.files.NativePath(main.editor.main_path));
    status.SetPanel(1, selected == nullptr ? std::string() : selected->Text());
}

void LoadFile(MainForm& main) {
    EditorState& editor = main.editor;
    editor.temp_path = FileToLoad(main);
    editor.main_path = editor.new_main_path;
    main.screen.SetPointer(Pointer::kHourglass);
    try {
        main.DHTMLEdit1.LoadDocument(editor.temp_path);
        while (main.DHTMLEdit1.Busy()) main.screen.DoEvents();
    } catch (const RuntimeError&) {
        main.DHTMLEdit1.NewDocument();
    }
    main.screen.SetPointer(Pointer::kNormal);
    SyncTopicSelection(main);
    GetStatusNotes(main);
}

}  // namespace quorrel
