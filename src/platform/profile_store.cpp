#include "platform/profile_store.hpp"

#include "platform/profile_file.hpp"
#include "platform/text.hpp"

namespace quorrel {
namespace {

/// Makes `folder` with its parents; an existing one is no failure.
void CreateFolders(FileSystem& files, const std::string& folder) {
    if (folder.empty() || files.FolderExists(folder)) return;
    const std::string_view parent = BeforeLast(folder, '\\', {});
    if (!parent.empty()) CreateFolders(files, std::string(parent));
    files.CreateFolder(folder);
}

}  // namespace

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

bool ProfileStore::Set(std::string_view file, std::string_view section, std::string_view key,
                       std::string_view value) {
    const std::string path = PathOf(file);
    try {
        std::string text;
        if (texts_.Files().FileExists(path)) {
            text = texts_.Read(path);
        } else if (path.starts_with(settings_folder_)) {
            CreateFolders(texts_.Files(), settings_folder_);
        }
        texts_.Write(path, SetProfileValue(text, section, key, value));
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

}  // namespace quorrel
