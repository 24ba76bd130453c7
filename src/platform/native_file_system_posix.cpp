#include "platform/native_file_system.hpp"

#include <dirent.h>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <ctime>
#include <limits>
#include <memory>
#include <optional>
#include <utility>

#include "platform/encoding.hpp"
#include "platform/failure.hpp"
#include "platform/text.hpp"

namespace quorrel {
namespace {

using namespace run_time_error;

class Descriptor {
  public:
    explicit Descriptor(int number) : number_(number) {}
    Descriptor(const Descriptor&) = delete;
    Descriptor& operator=(const Descriptor&) = delete;
    ~Descriptor() {
        if (number_ >= 0) close(number_);
    }
    [[nodiscard]] int Get() const { return number_; }
    /// Closes now, so that a late write error is seen.
    [[nodiscard]] bool Close() { return close(std::exchange(number_, -1)) == 0; }

  private:
    int number_;
};

std::optional<struct stat> StatOf(const std::string& native) {
    struct stat status {};
    if (stat(native.c_str(), &status) != 0) return std::nullopt;
    return status;
}

bool IsFolder(const std::string& native) {
    const auto status = StatOf(native);
    return status && S_ISDIR(status->st_mode);
}

std::string FolderOf(const std::string& native) {
    const std::size_t slash = native.rfind('/');
    if (slash == npos) return ".";
    return slash == 0 ? "/" : native.substr(0, slash);
}

[[noreturn]] void RaiseFor(int error, const std::string& native) {
    switch (error) {
        case ENOENT:
        case ENOTDIR:
        case ENAMETOOLONG:
        case EINVAL:
            throw RuntimeError(IsFolder(FolderOf(native)) ? kFileNotFound : kPathNotFound);
        case ENOSPC:
        case EDQUOT:
            throw RuntimeError(kDiskFull);
        case EIO:
            throw RuntimeError(kDeviceError);
        case EROFS:
            throw RuntimeError(kPathFileAccess);
        default:
            throw RuntimeError(kPermissionDenied);
    }
}

/// Some file systems have no way to wait for the disk, which is no fault of the file.
bool IsFailureToFlush(int error) {
    return error != EINVAL && error != ENOTSUP && error != ENOSYS && error != EROFS;
}

/// Native names are bytes; what is no UTF-8 in them survives the way through a Windows path.
std::string TextOfName(std::string_view bytes) {
    return CodePage::Get(kUtf8CodePage).Decode(bytes);
}
std::string NameOfText(std::string_view text) {
    return EncodeProjectText(text, {TextEncoding::Form::kUtf8, kUtf8CodePage});
}

std::int64_t Nanoseconds(const timespec& time) {
    return static_cast<std::int64_t>(time.tv_sec) * 1'000'000'000 + time.tv_nsec;
}

/// File systems stamp changes by a coarse clock: a folder changed within its last tick may
/// change again under the same stamp.
constexpr std::int64_t kStampResolution = 50'000'000;

std::string ReadUpTo(const std::string& native, std::size_t limit) {
    // Without O_NONBLOCK a pipe of that name would be waited for.
    const Descriptor file(open(native.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK));
    if (file.Get() < 0) RaiseFor(errno, native);
    struct stat status {};
    if (fstat(file.Get(), &status) != 0) RaiseFor(errno, native);
    if (!S_ISREG(status.st_mode)) throw RuntimeError(kPermissionDenied);
    std::string bytes;
    std::size_t filled = 0;
    bytes.resize(std::min(limit, static_cast<std::size_t>(status.st_size)));
    while (filled < bytes.size()) {
        const ssize_t count = read(file.Get(), bytes.data() + filled, bytes.size() - filled);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) RaiseFor(errno, native);
        // Somebody cuts the file at this moment: what is there is not the file.
        if (count == 0) throw RuntimeError(kDeviceError);
        filled += static_cast<std::size_t>(count);
    }
    return bytes;
}

}  // namespace

std::string NativeFileSystem::WindowsPath(std::string_view native) const {
    std::string path(native);
    if (!path.starts_with('/')) {
        const std::unique_ptr<char, decltype(&std::free)> current(getcwd(nullptr, 0), &std::free);
        if (current != nullptr) path = std::string(current.get()) + "/" + path;
    }
    std::string result = "Z:";
    std::size_t from = 0;
    while (from < path.size()) {
        const std::size_t end = std::min(path.find('/', from), path.size());
        const std::string_view part = std::string_view(path).substr(from, end - from);
        from = end + 1;
        if (part.empty() || part == ".") continue;
        if (part == "..") {
            result = BeforeLast(result, '\\', result);
            continue;
        }
        result.append("\\").append(TextOfName(part));
    }
    if (result == "Z:") result += "\\";
    return result;
}

std::string NativeFileSystem::NativePath(std::string_view path) const {
    std::string result(path);
    std::replace(result.begin(), result.end(), '\\', '/');
    const bool has_drive = result.size() >= 2 && result[1] == ':';
    if (has_drive && UpperAscii(result[0]) == 'Z') result.erase(0, 2);
    return result;
}

std::string NativeFileSystem::RealPath(std::string_view path) {
    if (path.empty() || IsNoPath(path)) return {};
    const std::unique_ptr<char, decltype(&std::free)> real(realpath(Resolve(path).c_str(), nullptr),
                                                           &std::free);
    return real == nullptr ? std::string() : WindowsPath(real.get());
}

/// Takes ".." back by the text alone, as Windows does: the folder before it need not exist.
static std::string WithoutParentSteps(std::string native) {
    for (std::size_t at = native.find("/.."); at != npos; at = native.find("/..", at)) {
        const bool is_step = at + 3 == native.size() || native[at + 3] == '/';
        const std::size_t parent = at == 0 ? npos : native.rfind('/', at - 1);
        const std::size_t name = parent == npos ? 0 : parent + 1;
        const bool can_go = at > name && native.compare(name, at - name, "..") != 0;
        if (!is_step || (!can_go && at != 0)) {
            ++at;
        } else if (at == 0) {  // above the root there is the root
            native.erase(0, 3);
        } else if (parent == npos) {  // "a/../b" from the current folder
            native.erase(0, std::min(at + 4, native.size()));
            at = 0;
        } else {
            native.erase(parent, at + 3 - parent);
            at = parent;
        }
    }
    return native.empty() ? "/" : native;
}

std::string NativeFileSystem::Resolve(std::string_view path) {
    if (IsNoPath(path)) throw RuntimeError(kFileNotFound);
    if (path.empty()) return {};
    std::string native = WithoutParentSteps(NameOfText(NativePath(path)));
    if (StatOf(native)) return native;
    std::string resolved = native.starts_with('/') ? "/" : "";
    std::size_t from = 0;
    while (from < native.size()) {
        const std::size_t end = std::min(native.find('/', from), native.size());
        const std::string name = native.substr(from, end - from);
        from = end + 1;
        if (name.empty()) continue;
        const std::string folder = resolved.empty() ? "." : resolved;
        if (!resolved.empty() && !resolved.ends_with('/')) resolved += '/';
        if (StatOf(resolved + name)) {
            resolved += name;
            continue;
        }
        const std::string spelling = Spelling(folder, name);
        resolved += spelling.empty() ? name : spelling;
        // Below what does not exist there is nothing to look for.
        if (spelling.empty())
            return end == native.size() ? resolved : resolved + native.substr(end);
    }
    return resolved;
}

std::string NativeFileSystem::Spelling(const std::string& folder, const std::string& name) {
    const auto status = StatOf(folder);
    if (!status || !S_ISDIR(status->st_mode)) return {};
    // Not the time of modification, which a program that unpacks files sets back.
    const std::int64_t changed = Nanoseconds(status->st_ctim);
    Listing& listing = listings_[folder];
    if (!listing.settled || listing.changed != changed) {
        timespec now{};
        clock_gettime(CLOCK_REALTIME, &now);
        listing.changed = changed;
        listing.settled = Nanoseconds(now) - changed > kStampResolution;
        listing.names.clear();
        const std::unique_ptr<DIR, int (*)(DIR*)> entries(opendir(folder.c_str()), &closedir);
        while (const dirent* entry = entries == nullptr ? nullptr : readdir(entries.get())) {
            const std::string on_disk = entry->d_name;
            const auto [place, is_new] = listing.names.try_emplace(TextOfName(on_disk), on_disk);
            // Two names that differ in case alone: the order of the folder must not decide.
            if (!is_new && on_disk < place->second) place->second = on_disk;
        }
    }
    const auto found = listing.names.find(TextOfName(name));
    return found == listing.names.end() ? std::string{} : found->second;
}

std::string NativeFileSystem::ReadFile(std::string_view path) {
    return ReadUpTo(Resolve(path), std::numeric_limits<std::size_t>::max());
}

std::string NativeFileSystem::ReadFileHead(std::string_view path, std::size_t size) {
    return ReadUpTo(Resolve(path), size);
}

void NativeFileSystem::WriteFile(std::string_view path, std::string_view bytes) {
    const std::string native = Resolve(path);
    Descriptor file(
        open(native.c_str(), O_WRONLY | O_CREAT | O_TRUNC | O_CLOEXEC | O_NONBLOCK, 0666));
    if (file.Get() < 0) RaiseFor(errno, native);
    std::size_t written = 0;
    while (written < bytes.size()) {
        const ssize_t count = write(file.Get(), bytes.data() + written, bytes.size() - written);
        if (count < 0 && errno == EINTR) continue;
        if (count < 0) RaiseFor(errno, native);
        written += static_cast<std::size_t>(count);
    }
    if (!file.Close()) RaiseFor(errno, native);
}

bool NativeFileSystem::FileExists(std::string_view path) {
    if (IsNoPath(path)) return false;
    const auto status = StatOf(Resolve(path));
    return status && !S_ISDIR(status->st_mode);
}

bool NativeFileSystem::FolderExists(std::string_view path) {
    if (IsNoPath(path)) return false;
    return IsFolder(Resolve(path));
}

std::vector<std::string> NativeFileSystem::NamesIn(std::string_view folder, bool of_folders) {
    std::vector<std::string> names;
    if (IsNoPath(folder)) return names;
    const std::string native = Resolve(folder);
    const std::unique_ptr<DIR, int (*)(DIR*)> entries(opendir(native.c_str()), &closedir);
    while (const dirent* entry = entries == nullptr ? nullptr : readdir(entries.get())) {
        const std::string_view name = entry->d_name;
        if (name == "." || name == "..") continue;
        const auto status = StatOf(native + "/" + std::string(name));
        if (status && S_ISDIR(status->st_mode) == of_folders) names.push_back(TextOfName(name));
    }
    return names;
}

void NativeFileSystem::CreateFolder(std::string_view path) {
    const std::string native = Resolve(path);
    if (mkdir(native.c_str(), 0777) == 0) return NoteNewName(native);
    if (errno == EEXIST) throw RuntimeError(kFileExists);
    if (errno == ENOENT) throw RuntimeError(kPathNotFound);
    RaiseFor(errno, native);
}

bool NativeFileSystem::MoveFile(std::string_view from, std::string_view to) {
    try {
        const std::string source = Resolve(from);
        std::string target = Resolve(to);
        if (source == target) {
            // The name found is the file's own: it may get another case of letters.
            const std::string wanted = NameOfText(NativePath(to));
            target = FolderOf(source) + "/" + std::string(AfterLast(wanted, '/'));
            if (source != target && StatOf(target)) return false;
        } else if (StatOf(target)) {
            return false;
        }
        if (rename(source.c_str(), target.c_str()) != 0) return false;
        NoteNewName(target);
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

void NativeFileSystem::FlushFile(std::string_view path) {
    if (!flush_to_disk) return;
    const std::string native = Resolve(path);
    // One of the two is permitted to whoever has just written the file.
    int number = open(native.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK);
    if (number < 0) number = open(native.c_str(), O_WRONLY | O_CLOEXEC | O_NONBLOCK);
    const Descriptor file(number);
    if (file.Get() < 0) RaiseFor(errno, native);
    if (fdatasync(file.Get()) != 0 && IsFailureToFlush(errno)) RaiseFor(errno, native);
}

void NativeFileSystem::NoteNewName(const std::string& native) {
    if (flush_to_disk) unflushed_folders_.insert(FolderOf(native));
}

void NativeFileSystem::FlushNames() {
    for (const std::string& native : std::exchange(unflushed_folders_, {})) {
        const Descriptor folder(open(native.c_str(), O_RDONLY | O_CLOEXEC | O_DIRECTORY));
        // A folder that is gone, or that may be written and not read, cannot be waited for.
        if (folder.Get() < 0) continue;
        if (fsync(folder.Get()) != 0 && IsFailureToFlush(errno)) RaiseFor(errno, native);
    }
}

bool NativeFileSystem::ReplaceFile(std::string_view from, std::string_view to) {
    try {
        const std::string source = Resolve(from);
        std::string target = Resolve(to);
        if (IsFolder(source) || IsFolder(target)) return false;
        // A link stays one, and what it leads to is replaced.
        const std::unique_ptr<char, decltype(&std::free)> real(realpath(target.c_str(), nullptr),
                                                               &std::free);
        if (real != nullptr) target = real.get();
        if (const auto status = StatOf(target)) chmod(source.c_str(), status->st_mode & 07777);
        if (rename(source.c_str(), target.c_str()) != 0) return false;
        NoteNewName(target);
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

bool NativeFileSystem::LinkFile(std::string_view from, std::string_view to) {
    try {
        const std::string target = Resolve(to);
        if (StatOf(target) || link(Resolve(from).c_str(), target.c_str()) != 0) return false;
        NoteNewName(target);
        return true;
    } catch (const RuntimeError&) {
        return false;
    }
}

std::optional<FileStamp> NativeFileSystem::Stamp(std::string_view path) {
    if (IsNoPath(path)) return std::nullopt;
    const auto status = StatOf(Resolve(path));
    if (!status || S_ISDIR(status->st_mode)) return std::nullopt;
    return FileStamp{static_cast<std::uint64_t>(status->st_size), Nanoseconds(status->st_mtim)};
}

bool NativeFileSystem::DeleteFile(std::string_view path) {
    try {
        return unlink(Resolve(path).c_str()) == 0;
    } catch (const RuntimeError&) {
        return false;
    }
}

}  // namespace quorrel
