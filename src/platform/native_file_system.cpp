#include "platform/native_file_system.hpp"

#include <algorithm>

#include "platform/failure.hpp"
#include "platform/text.hpp"

namespace quorrel {

bool IsNoPath(std::string_view path) {
    constexpr std::size_t kLongest = 32767;
    return path.size() > kLongest || Contains(path, std::string_view("\0", 1));
}

static std::vector<std::string> Sorted(std::vector<std::string> names) {
    std::sort(names.begin(), names.end(), [](const std::string& a, const std::string& b) {
        const int order = CompareIgnoringCase(a, b);
        return order != 0 ? order < 0 : a < b;
    });
    return names;
}

std::vector<std::string> NativeFileSystem::FileNames(std::string_view folder) {
    return Sorted(NamesIn(folder, false));
}

std::vector<std::string> NativeFileSystem::FolderNames(std::string_view folder) {
    return Sorted(NamesIn(folder, true));
}

bool NativeFileSystem::CopyFile(std::string_view from, std::string_view to, bool may_replace) {
    if (!may_replace && (FileExists(to) || FolderExists(to))) return false;
    try {
        // Half a copy would pass for the file later.
        WriteWhole(*this, to, ReadFile(from));
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

}  // namespace quorrel
