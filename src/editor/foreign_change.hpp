// Topics that another program changes while they are open here.
#pragma once

#include <functional>
#include <string>
#include <string_view>

namespace quorrel {

struct MainForm;

/// Remembers the topic's file as it is on disk now.
void NoteTopicFile(MainForm& main, const std::string& topic);

/// Whether these are the bytes that the topic's file had when it was noted.
[[nodiscard]] bool IsAsLoaded(const MainForm& main, const std::string& topic,
                              std::string_view bytes);

enum class Overwrite {
    kAllowed,
    kRefused,  // by the user
    kNothing,  // what would be written is what was loaded: the other program's text stays
};

/// Whether `new_bytes` may take the place of the topic's file. Asks the user if another program
/// has changed the file since it was noted. `new_bytes` is called only then. May raise as
/// FileSystem::ReadFile.
[[nodiscard]] Overwrite MayOverwrite(MainForm& main, const std::string& topic,
                                     const std::function<std::string()>& new_bytes);

}  // namespace quorrel
