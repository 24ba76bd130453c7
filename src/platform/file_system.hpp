// The file operations that the logic calls, on Windows paths.
#pragma once

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

namespace quorrel {

/// What tells one state of a file from another without reading it.
struct FileStamp {
    std::uint64_t size = 0;     // bytes
    std::int64_t modified = 0;  // nanoseconds; only for comparison
    friend bool operator==(const FileStamp&, const FileStamp&) = default;
};

/// Paths are Windows paths in UTF-8 with backslashes; a relative one is meant from the current
/// folder. Names are found without regard to case.
class FileSystem {
  public:
    virtual ~FileSystem() = default;

    /// The whole file. Raises 53 (no such file), 76 (no such folder), 70 (a folder, or not
    /// permitted), 57 (device).
    [[nodiscard]] virtual std::string ReadFile(std::string_view path) = 0;
    /// At most the first `size` bytes of the file; raises as ReadFile does.
    [[nodiscard]] virtual std::string ReadFileHead(std::string_view path, std::size_t size) = 0;
    /// Creates or replaces the file; the on-disk spelling of an existing one stays. Raises 70,
    /// 75, 76, 61 (disk full), 57.
    virtual void WriteFile(std::string_view path, std::string_view bytes) = 0;

    [[nodiscard]] virtual bool FileExists(std::string_view path) = 0;
    [[nodiscard]] virtual bool FolderExists(std::string_view path) = 0;
    /// The names of the files in a folder, or of the folders in it: in their on-disk spelling,
    /// sorted without regard to case. Empty where the folder cannot be read.
    [[nodiscard]] virtual std::vector<std::string> FileNames(std::string_view folder) = 0;
    [[nodiscard]] virtual std::vector<std::string> FolderNames(std::string_view folder) = 0;
    /// Raises 58 where a file or folder of the name exists, 76 where the parent is missing.
    virtual void CreateFolder(std::string_view path) = 0;
    /// False where it fails, also where `to` exists and may not be replaced.
    virtual bool CopyFile(std::string_view from, std::string_view to, bool may_replace) = 0;
    /// False where it fails, also where `to` exists.
    virtual bool MoveFile(std::string_view from, std::string_view to) = 0;
    /// Waits until the file's bytes are on the disk, so that it survives a loss of power when it
    /// takes another one's place. Raises as WriteFile does: a disk may tell only now that it could
    /// not take them.
    virtual void FlushFile(std::string_view path) = 0;
    /// Waits until the folders on the disk have the names that files and folders got by
    /// ReplaceFile, MoveFile, LinkFile and CreateFolder since the last call. Raises as WriteFile.
    virtual void FlushNames() = 0;
    /// Puts `from` in the place of `to`, which keeps its on-disk spelling and its permissions: at
    /// every moment one of the two is there whole. False where it fails, with both as they were.
    virtual bool ReplaceFile(std::string_view from, std::string_view to) = 0;
    /// Gives the file `from` a second name. False where it fails, also where `to` exists and on a
    /// file system that cannot.
    virtual bool LinkFile(std::string_view from, std::string_view to) = 0;
    /// Nothing where there is no such file.
    [[nodiscard]] virtual std::optional<FileStamp> Stamp(std::string_view path) = 0;
    /// False where it fails.
    virtual bool DeleteFile(std::string_view path) = 0;

    /// The path as the user of this system writes it, for everything that is shown.
    [[nodiscard]] virtual std::string NativePath(std::string_view path) const = 0;
    /// The inner form of a native path; a relative one is taken from the current folder.
    [[nodiscard]] virtual std::string WindowsPath(std::string_view native) const = 0;
    /// The path of what is really there, with no link on the way and in the on-disk spelling.
    /// Empty where there is nothing.
    [[nodiscard]] virtual std::string RealPath(std::string_view path) = 0;
};

/// The inner form of a native path; a relative one stays relative.
[[nodiscard]] std::string InnerPath(const FileSystem& files, std::string_view native);

/// Makes a folder together with those above it that are missing; one that exists is left alone.
/// Raises as FileSystem::CreateFolder.
void MakeFolder(FileSystem& files, std::string_view path);

/// Writes a file so that its old content stays until the new one is on the disk whole, by way of
/// `path` + ".tmp". Where no such file can be made beside it an existing file is written in
/// place. Raises as FileSystem::WriteFile.
void WriteWhole(FileSystem& files, std::string_view path, std::string_view bytes);

}  // namespace quorrel
