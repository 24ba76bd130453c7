#include "platform/file_system.hpp"

#include "platform/failure.hpp"
#include "platform/text.hpp"

namespace quorrel {

std::string InnerPath(const FileSystem& files, std::string_view native) {
    return native.starts_with('/') ? files.WindowsPath(native) : ReplaceAll(native, "/", "\\");
}

void MakeFolder(FileSystem& files, std::string_view path) {
    std::vector<std::string_view> missing;
    for (; !path.empty() && !files.FolderExists(path); path = BeforeLast(path, '\\', {})) {
        if (!path.ends_with('\\')) missing.push_back(path);
    }
    for (; !missing.empty(); missing.pop_back()) files.CreateFolder(missing.back());
}

void WriteWhole(FileSystem& files, std::string_view path, std::string_view bytes) {
    const std::string temporary = std::string(path) + ".tmp";
    try {
        files.WriteFile(temporary, bytes);
        files.FlushFile(temporary);
    } catch (const RuntimeError& error) {
        files.DeleteFile(temporary);
        const bool not_permitted = error.Number() == run_time_error::kPermissionDenied;
        if (!not_permitted || !files.FileExists(path)) throw;
        files.WriteFile(path, bytes);
        return files.FlushFile(path);
    }
    if (files.ReplaceFile(temporary, path)) return files.FlushNames();
    files.DeleteFile(temporary);
    throw RuntimeError(run_time_error::kPathFileAccess);
}

}  // namespace quorrel
