#include "editor/foreign_change.hpp"

#include "app/main_form.hpp"
#include "platform/text.hpp"
#include "project/working_copy.hpp"

namespace quorrel {

void NoteTopicFile(MainForm& main, const std::string& topic) {
    main.editor.loaded.erase(topic);
    const auto stamp = main.files.Stamp(topic);
    if (!stamp) return;
    try {
        const std::size_t hash = std::hash<std::string>{}(main.files.ReadFile(topic));
        main.editor.loaded[topic] = {*stamp, hash};
    } catch (const RuntimeError&) {
        // What cannot be read is not opened either.
    }
}

bool IsAsLoaded(const MainForm& main, const std::string& topic, std::string_view bytes) {
    const auto known = main.editor.loaded.find(topic);
    return known != main.editor.loaded.end() &&
           std::hash<std::string_view>{}(bytes) == known->second.hash;
}

Overwrite MayOverwrite(MainForm& main, const std::string& topic,
                       const std::function<std::string()>& new_bytes) {
    const auto known = main.editor.loaded.find(topic);
    if (known == main.editor.loaded.end()) return Overwrite::kAllowed;
    const auto stamp = main.files.Stamp(topic);
    if (!stamp || *stamp == known->second.stamp) return Overwrite::kAllowed;
    const std::hash<std::string> hash;
    if (hash(main.files.ReadFile(topic)) == known->second.hash) return Overwrite::kAllowed;
    if (hash(new_bytes()) == known->second.hash) return Overwrite::kNothing;
    const std::string name = main.files.NativePath(topic);
    const Message question = {
        name +
            " has been changed by another program since it was opened.\r\n\r\nDo you want to "
            "replace it with your version? If not, your version stays beside it as " +
            std::string(AfterLast(topic, '\\')) + std::string(kWorkingCopy) + ".",
        main.settings.APP_NAME, MessageButtons::kYesNo, MessageIcon::kExclamation,
        MessageAnswer::kNo};
    const bool yes = main.screen.ShowMessage(question) == MessageAnswer::kYes;
    return yes ? Overwrite::kAllowed : Overwrite::kRefused;
}

}  // namespace quorrel
