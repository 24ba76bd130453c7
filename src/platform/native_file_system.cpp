#include "platform/native_file_system.hpp"

#include "platform/failure.hpp"
#include "platform/text.hpp"

namespace quorrel {

bool IsNoPath(std::string_view path) {
    constexpr std::size_t kLongest = 32767;
    return path.size() > kLongest || Contains(path, std::string_view("\0", 1));
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
