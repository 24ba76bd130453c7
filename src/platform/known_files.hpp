// What is known of the files that a project was read from: nobody's text may be replaced by one
// that its writer has never seen.
#pragma once

#include <cstddef>
#include <initializer_list>
#include <optional>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/file_system.hpp"
#include "platform/unicode.hpp"

namespace quorrel {

/// Why a file that is there may not be replaced just so.
enum class Doubt {
    kNone,
    kChanged,    // another program has changed or made it since it was read
    kNotRead,    // nobody has looked what is in it
    kOutside,    // it is not below the project's folder
    kOtherKind,  // what was read is no file of the kind that would take its place
};

class KnownFiles {
  public:
    explicit KnownFiles(FileSystem& files) : files_(files) {}

    /// Forgets all. Files that are not below `folder` are doubtful; an empty one means none is.
    void Start(std::string_view folder);

    /// The bytes and the stamp that the file had when it was read first; later readings of a file
    /// that is known change nothing.
    void NoteRead(std::string_view path, const std::optional<FileStamp>& stamp,
                  std::string_view bytes);
    /// The file, if it is there, has these bytes from us.
    void NoteWritten(std::string_view path, std::string_view bytes);
    /// There was no such file. Nothing happens where it is known or exists.
    void NoteAbsent(std::string_view path);
    void NoteOtherKind(std::string_view path) { records_[std::string(path)].is_other_kind = true; }
    /// The user has said that the file as it is now may be replaced.
    void Approve(std::string_view path);
    /// Something that belongs into the file could not be read: it must stay as it is. That lasts
    /// until Start. `reason` names what it was.
    void NoteFailure(std::string_view path, std::string_view reason);
    /// Empty where there is none.
    [[nodiscard]] std::string FailureOf(std::string_view path) const;
    /// Each failure, with the path, in the order of the alphabet.
    [[nodiscard]] std::vector<std::pair<std::string, std::string>> Failures() const;

    /// Looks at the file as it is now. May raise as FileSystem::ReadFile.
    [[nodiscard]] Doubt DoubtAbout(std::string_view path);
    /// The same as DoubtAbout giving kChanged, true once for each such change.
    [[nodiscard]] bool TakeNewsOfChange(std::string_view path);
    /// Whether the file had these bytes when it was read or written here the last time.
    [[nodiscard]] bool WasLike(std::string_view path, std::string_view bytes) const;
    [[nodiscard]] bool IsOutside(std::string_view path) const;
    [[nodiscard]] const std::string& Folder() const { return folder_; }

  private:
    struct State {
        FileStamp stamp;
        std::size_t hash = 0;
    };
    struct Record {
        std::optional<State> state;  // nothing where there was no file
        bool is_known = false;
        bool is_other_kind = false;
        bool is_approved = false;
        std::optional<FileStamp> told;  // of a change by another program
        std::string failure;
    };
    [[nodiscard]] bool HasChanged(std::string_view path, const FileStamp& now, Record& record);

    FileSystem& files_;
    std::string folder_;
    std::unordered_map<std::string, Record, IgnoringCaseHash, IgnoringCaseEqual> records_;
};

/// False where `text` says something and has none of these marks, ASCII capitals: then it is none
/// of the files that have one of them. Tags alone say nothing.
[[nodiscard]] bool LooksLike(std::string_view text, std::initializer_list<std::string_view> marks);

}  // namespace quorrel
