#include "platform/profile_store.hpp"

#include "platform/profile_file.hpp"
#include "platform/text.hpp"

namespace quorrel {
ProfileStore::ProfileStore(TextFiles& texts, std::string settings_folder)
    : texts_(texts), settings_folder_(std::move(settings_folder)) {}

std::string ProfileStore::PathOf(std::string_view file) const {
    if (file.find_first_of("\\/:") != npos) return std::string(file);
    return settings_folder_ + "\\" + std::string(file);
}

std::string ProfileStore::Get(std::string_view file, std::string_view section, std::string_view key,
                              std::string_view otherwise, std::size_t limit) const {
    std::string value(otherwise);
    try {
        if (auto found = ProfileValue(texts_.Read(PathOf(file)), section, key)) value = *found;
    } catch (const RuntimeError&) {
        // A missing file reads as the default.
    }
    value = FirstCharacters(value, limit);
    return value.substr(0, value.find('\0'));
}

bool ProfileStore::Set(std::string_view file, std::string_view section, const ProfilePairs& pairs) {
    const std::string path = PathOf(file);
    // What was shown to the user was not what the file says.
    if (!texts_.Known().FailureOf(path).empty()) return false;
    try {
        std::string old_text;
        const bool exists = texts_.Files().FileExists(path);
        if (exists) {
            old_text = texts_.Read(path);
        } else if (path.starts_with(settings_folder_)) {
            MakeFolder(texts_.Files(), settings_folder_);
        }
        std::string text = old_text;
        for (const auto& [key, value] : pairs) text = SetProfileValue(text, section, key, value);
        if (!exists || text != old_text) texts_.Write(path, text);
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

}  // namespace quorrel
