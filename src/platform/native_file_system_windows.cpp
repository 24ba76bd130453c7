#include <algorithm>
#include <limits>

#include "platform/failure.hpp"
#include "platform/native_file_system.hpp"
#include "platform/text.hpp"
#include "platform/windows_api.hpp"

namespace quorrel {
namespace {

using namespace run_time_error;

constexpr DWORD kShareAll = FILE_SHARE_READ | FILE_SHARE_WRITE | FILE_SHARE_DELETE;
constexpr std::size_t kPiece = std::size_t{1} << 28;  // bytes that one call takes

class Handle {
  public:
    Handle(const std::wstring& path, DWORD access, DWORD share, DWORD disposition,
           DWORD flags = FILE_ATTRIBUTE_NORMAL)
        : handle_(CreateFileW(path.c_str(), access, share, nullptr, disposition, flags, nullptr)) {}
    Handle(const Handle&) = delete;
    Handle& operator=(const Handle&) = delete;
    ~Handle() {
        if (Valid()) CloseHandle(handle_);
    }
    [[nodiscard]] bool Valid() const { return handle_ != INVALID_HANDLE_VALUE; }
    [[nodiscard]] HANDLE Get() const { return handle_; }

  private:
    HANDLE handle_;
};

/// A device has a path of its own, whatever folder its name is in.
bool IsDevice(const std::wstring& path) {
    return path.starts_with(L"\\\\.\\");
}

DWORD AttributesOf(const std::wstring& path) {
    return IsDevice(path) ? INVALID_FILE_ATTRIBUTES : GetFileAttributesW(path.c_str());
}

bool IsFolder(const std::wstring& path) {
    const DWORD attributes = AttributesOf(path);
    return attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
}

bool Exists(const std::wstring& path) {
    return AttributesOf(path) != INVALID_FILE_ATTRIBUTES;
}

[[noreturn]] void RaiseFor(DWORD error, const std::wstring& path) {
    switch (error) {
        case ERROR_FILE_NOT_FOUND:
        case ERROR_PATH_NOT_FOUND:
        case ERROR_INVALID_NAME:
        case ERROR_BAD_PATHNAME:
        case ERROR_DIRECTORY:
        case ERROR_FILENAME_EXCED_RANGE: {
            const std::wstring folder = path.substr(0, path.rfind(L'\\') + 1);
            throw RuntimeError(IsFolder(folder) ? kFileNotFound : kPathNotFound);
        }
        case ERROR_DISK_FULL:
        case ERROR_HANDLE_DISK_FULL:
            throw RuntimeError(kDiskFull);
        case ERROR_CRC:
        case ERROR_NOT_READY:
        case ERROR_IO_DEVICE:
        case ERROR_GEN_FAILURE:
            throw RuntimeError(kDeviceError);
        case ERROR_WRITE_PROTECT:
            throw RuntimeError(kPathFileAccess);
        default:
            throw RuntimeError(kPermissionDenied);
    }
}

std::string ReadUpTo(const std::wstring& path, std::size_t limit) {
    if (IsDevice(path)) throw RuntimeError(kPermissionDenied);
    const Handle file(path, GENERIC_READ, kShareAll, OPEN_EXISTING);
    if (!file.Valid()) RaiseFor(GetLastError(), path);
    LARGE_INTEGER size{};
    if (GetFileType(file.Get()) != FILE_TYPE_DISK || GetFileSizeEx(file.Get(), &size) == 0) {
        throw RuntimeError(kPermissionDenied);
    }
    std::string bytes;
    bytes.resize(std::min(limit, static_cast<std::size_t>(size.QuadPart)));
    std::size_t filled = 0;
    while (filled < bytes.size()) {
        const auto wanted = static_cast<DWORD>(std::min(bytes.size() - filled, kPiece));
        DWORD count = 0;
        if (::ReadFile(file.Get(), bytes.data() + filled, wanted, &count, nullptr) == 0) {
            RaiseFor(GetLastError(), path);
        }
        // Somebody cuts the file at this moment: what is there is not the file.
        if (count == 0) throw RuntimeError(kDeviceError);
        filled += count;
    }
    return bytes;
}

std::uint64_t Joined(DWORD high, DWORD low) {
    return std::uint64_t{high} << 32 | low;
}

/// The path with the on-disk spelling of its last part, if that exists.
std::wstring SpelledAsOnDisk(const std::wstring& path) {
    WIN32_FIND_DATAW found{};
    const HANDLE search = FindFirstFileW(path.c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return path;
    FindClose(search);
    return path.substr(0, path.rfind(L'\\') + 1) + found.cFileName;
}

/// The path as programs write it, of one that the system gives with its mark of long paths.
std::string WithoutLongPathMark(const std::wstring& path) {
    constexpr std::wstring_view kMark = L"\\\\?\\";
    constexpr std::wstring_view kShareMark = L"\\\\?\\UNC\\";
    if (path.starts_with(kShareMark)) return "\\\\" + Narrow(path.substr(kShareMark.size()));
    return Narrow(path.starts_with(kMark) ? path.substr(kMark.size()) : path);
}

}  // namespace

std::string NativeFileSystem::WindowsPath(std::string_view native) const {
    return Narrow(WidePath(native.empty() ? "." : native));
}

std::string NativeFileSystem::RealPath(std::string_view path) {
    if (path.empty() || IsNoPath(path)) return {};
    const std::wstring native = WidePath(path);
    if (IsDevice(native)) return {};
    // A folder can be opened that way only.
    const Handle there(native, 0, kShareAll, OPEN_EXISTING, FILE_FLAG_BACKUP_SEMANTICS);
    if (!there.Valid()) return {};
    std::wstring real(GetFinalPathNameByHandleW(there.Get(), nullptr, 0, 0), L'\0');
    real.resize(
        GetFinalPathNameByHandleW(there.Get(), real.data(), static_cast<DWORD>(real.size()), 0));
    return WithoutLongPathMark(real);
}

std::string NativeFileSystem::NativePath(std::string_view path) const {
    return ReplaceAll(path, "/", "\\");
}

std::string NativeFileSystem::Resolve(std::string_view path) {
    return Narrow(WidePath(path));
}

std::string NativeFileSystem::ReadFile(std::string_view path) {
    return ReadUpTo(WidePath(path), std::numeric_limits<std::size_t>::max());
}

std::string NativeFileSystem::ReadFileHead(std::string_view path, std::size_t size) {
    return ReadUpTo(WidePath(path), size);
}

void NativeFileSystem::WriteFile(std::string_view path, std::string_view bytes) {
    const std::wstring native = WidePath(path);
    if (IsDevice(native)) throw RuntimeError(kPermissionDenied);
    // Not CREATE_ALWAYS, which fails for a hidden file.
    const Handle file(native, GENERIC_WRITE, FILE_SHARE_READ, OPEN_ALWAYS);
    if (!file.Valid()) RaiseFor(GetLastError(), native);
    if (SetEndOfFile(file.Get()) == 0) RaiseFor(GetLastError(), native);
    while (!bytes.empty()) {
        const auto wanted = static_cast<DWORD>(std::min(bytes.size(), kPiece));
        DWORD count = 0;
        if (::WriteFile(file.Get(), bytes.data(), wanted, &count, nullptr) == 0) {
            RaiseFor(GetLastError(), native);
        }
        bytes.remove_prefix(count);
    }
}

bool NativeFileSystem::FileExists(std::string_view path) {
    if (path.empty() || IsNoPath(path)) return false;
    const std::wstring native = WidePath(path);
    return Exists(native) && !IsFolder(native);
}

bool NativeFileSystem::FolderExists(std::string_view path) {
    return !path.empty() && !IsNoPath(path) && IsFolder(WidePath(path));
}

std::vector<std::string> NativeFileSystem::NamesIn(std::string_view folder, bool of_folders) {
    std::vector<std::string> names;
    if (folder.empty() || IsNoPath(folder)) return names;
    WIN32_FIND_DATAW found{};
    const HANDLE search = FindFirstFileW((WidePath(folder) + L"\\*").c_str(), &found);
    if (search == INVALID_HANDLE_VALUE) return names;
    do {
        const std::string name = Narrow(found.cFileName);
        const bool is_folder = (found.dwFileAttributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
        if (name != "." && name != ".." && is_folder == of_folders) names.push_back(name);
    } while (FindNextFileW(search, &found) != 0);
    FindClose(search);
    return names;
}

void NativeFileSystem::CreateFolder(std::string_view path) {
    const std::wstring native = WidePath(path);
    if (CreateDirectoryW(native.c_str(), nullptr) != 0) return;
    const DWORD error = GetLastError();
    if (error == ERROR_ALREADY_EXISTS || error == ERROR_FILE_EXISTS) {
        throw RuntimeError(kFileExists);
    }
    if (error == ERROR_PATH_NOT_FOUND) throw RuntimeError(kPathNotFound);
    RaiseFor(error, native);
}

bool NativeFileSystem::MoveFile(std::string_view from, std::string_view to) {
    try {
        return MoveFileExW(WidePath(from).c_str(), WidePath(to).c_str(), 0) != 0;
    } catch (const RuntimeError&) {
        return false;
    }
}

void NativeFileSystem::FlushFile(std::string_view path) {
    if (!flush_to_disk) return;
    const std::wstring native = WidePath(path);
    const Handle file(native, GENERIC_WRITE, kShareAll, OPEN_EXISTING);
    if (!file.Valid() || FlushFileBuffers(file.Get()) == 0) RaiseFor(GetLastError(), native);
}

// The file system's own journal has the names.
void NativeFileSystem::FlushNames() {}

bool NativeFileSystem::ReplaceFile(std::string_view from, std::string_view to) {
    try {
        const std::wstring source = WidePath(from);
        const std::wstring target = SpelledAsOnDisk(WidePath(to));
        if (IsFolder(source) || IsFolder(target)) return false;
        // The first keeps the permissions of the file that goes, but needs one.
        return (Exists(target) &&
                ReplaceFileW(target.c_str(), source.c_str(), nullptr,
                             REPLACEFILE_IGNORE_MERGE_ERRORS, nullptr, nullptr) != 0) ||
               MoveFileExW(source.c_str(), target.c_str(), MOVEFILE_REPLACE_EXISTING) != 0;
    } catch (const RuntimeError&) {
        return false;
    }
}

bool NativeFileSystem::LinkFile(std::string_view from, std::string_view to) {
    try {
        return CreateHardLinkW(WidePath(to).c_str(), WidePath(from).c_str(), nullptr) != 0;
    } catch (const RuntimeError&) {
        return false;
    }
}

std::optional<FileStamp> NativeFileSystem::Stamp(std::string_view path) {
    if (path.empty() || IsNoPath(path)) return std::nullopt;
    const std::wstring native = WidePath(path);
    WIN32_FILE_ATTRIBUTE_DATA data{};
    if (IsDevice(native) || IsFolder(native) ||
        GetFileAttributesExW(native.c_str(), GetFileExInfoStandard, &data) == 0) {
        return std::nullopt;
    }
    constexpr std::uint64_t kNanosecondsOfTick = 100;
    const std::uint64_t ticks =
        Joined(data.ftLastWriteTime.dwHighDateTime, data.ftLastWriteTime.dwLowDateTime);
    return FileStamp{Joined(data.nFileSizeHigh, data.nFileSizeLow),
                     static_cast<std::int64_t>(ticks * kNanosecondsOfTick)};
}

bool NativeFileSystem::DeleteFile(std::string_view path) {
    try {
        return DeleteFileW(WidePath(path).c_str()) != 0;
    } catch (const RuntimeError&) {
        return false;
    }
}

}  // namespace quorrel
