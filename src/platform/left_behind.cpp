#include "platform/left_behind.hpp"

#include <algorithm>
#include <utility>

#include "platform/failure.hpp"

namespace quorrel {

std::string Listed(const std::vector<LeftBehind>& kinds) {
    std::string text;
    for (const LeftBehind& kind : kinds) {
        if (kind.count == 0) continue;
        if (!text.empty()) text += ", ";
        text.append(kind.what).append(" (").append(std::to_string(kind.count));
        if (kind.of > 0) text.append(" of ").append(std::to_string(kind.of));
        text += ')';
    }
    return text;
}

FileLeftBehind* LeftBehindFiles::Find(std::string_view path) {
    const auto found = std::find_if(files_.begin(), files_.end(), [&](const FileLeftBehind& file) {
        return IgnoringCaseEqual()(file.path, path);
    });
    return found == files_.end() ? nullptr : &*found;
}

void LeftBehindFiles::Note(std::string_view path, LeftBehind kind) {
    if (kind.count == 0) return;
    FileLeftBehind* file = Find(path);
    if (file == nullptr) file = &files_.emplace_back(FileLeftBehind{std::string(path), {}, false});
    file->is_kept = false;
    for (LeftBehind& known : file->kinds) {
        if (known.what != kind.what) continue;
        known = std::move(kind);
        return;
    }
    file->kinds.push_back(std::move(kind));
}

bool LeftBehindFiles::KeepOriginal(FileSystem& disk, std::string_view path) {
    FileLeftBehind* file = Find(path);
    if (file == nullptr || file->is_kept || !disk.FileExists(path)) return true;
    file->is_kept = quorrel::KeepOriginal(disk, path);
    return file->is_kept;
}

bool KeepOriginal(FileSystem& disk, std::string_view path) {
    constexpr int kMostOriginals = 99;
    try {
        const std::string bytes = disk.ReadFile(path);
        for (int number = 1; number <= kMostOriginals; ++number) {
            std::string kept = std::string(path) + ".orig";
            if (number > 1) kept += "." + std::to_string(number);
            if (!disk.FileExists(kept)) {
                // A second name would not do: the file may be written in place one day.
                if (!disk.CopyFile(path, kept, false)) return false;
                disk.FlushFile(kept);
                return true;
            }
            if (disk.ReadFile(kept) == bytes) return true;
        }
    } catch (const RuntimeError&) {
    }
    return false;
}

}  // namespace quorrel
