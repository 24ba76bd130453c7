// The files of this system. On Windows the paths are its own. On a system with "/" paths its root
// is the drive "Z:", and names are looked up without regard to case.
#pragma once

#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "platform/file_system.hpp"
#include "platform/unicode.hpp"

namespace quorrel {

/// A NUL would end the name for the system, and another file would be meant. The limit of length
/// is that of Windows.
[[nodiscard]] bool IsNoPath(std::string_view path);

class NativeFileSystem : public FileSystem {
  public:
    std::string ReadFile(std::string_view path) override;
    std::string ReadFileHead(std::string_view path, std::size_t size) override;
    void WriteFile(std::string_view path, std::string_view bytes) override;
    bool FileExists(std::string_view path) override;
    bool FolderExists(std::string_view path) override;
    std::vector<std::string> FileNames(std::string_view folder) override;
    std::vector<std::string> FolderNames(std::string_view folder) override;
    void CreateFolder(std::string_view path) override;
    bool CopyFile(std::string_view from, std::string_view to, bool may_replace) override;
    bool MoveFile(std::string_view from, std::string_view to) override;
    void FlushFile(std::string_view path) override;
    void FlushNames() override;
    bool ReplaceFile(std::string_view from, std::string_view to) override;
    bool LinkFile(std::string_view from, std::string_view to) override;
    std::optional<FileStamp> Stamp(std::string_view path) override;
    bool DeleteFile(std::string_view path) override;
    std::string NativePath(std::string_view path) const override;
    std::string WindowsPath(std::string_view native) const override;
    std::string RealPath(std::string_view path) override;

    /// False makes FlushFile and FlushNames do nothing.
    bool flush_to_disk = true;

    /// The full native path. Where names have a case it is in bytes, with the on-disk spelling of
    /// each part that exists. A part that does not exist stays as given. Raises 53 for what cannot
    /// be a path.
    [[nodiscard]] std::string Resolve(std::string_view path);

  private:
    /// The names of the files or of the folders, in any order.
    [[nodiscard]] std::vector<std::string> NamesIn(std::string_view folder, bool of_folders);

    using Names = std::unordered_map<std::string, std::string, IgnoringCaseHash, IgnoringCaseEqual>;

    // Beyond Windows, where the system does not find names in any case by itself.

    /// The names of one folder as they were at `changed`, the folder's time stamp.
    struct Listing {
        std::int64_t changed = 0;
        bool settled = false;  // the stamp was old enough to notice every later change
        Names names;
    };

    /// The on-disk spelling of `name` in `folder`, or an empty string.
    std::string Spelling(const std::string& folder, const std::string& name);

    void NoteNewName(const std::string& native);

    std::unordered_map<std::string, Listing> listings_;
    std::set<std::string> unflushed_folders_;  // native paths
};

}  // namespace quorrel
