// What a project's files hold and the program's own writers would leave out, and the original of
// such a file, which is kept before it is replaced.
#pragma once

#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/file_system.hpp"
#include "platform/unicode.hpp"

namespace quorrel {

/// One kind of what a reader saw and could not take.
struct LeftBehind {
    std::string what;  // in the plural, as the warning names it: "aliases inside [ALIAS]"
    int count = 0;
    int of = 0;  // how many of the kind there are; 0 where that says nothing
};

/// Counts one kind while a file is read.
struct LossCount {
    int seen = 0;
    int lost = 0;

    void See(bool is_lost) {
        ++seen;
        if (is_lost) ++lost;
    }
    [[nodiscard]] LeftBehind Of(std::string what) const { return {std::move(what), lost, seen}; }
};

/// The kinds that were found, as one text: "aliases (3 of 5), comments (1)".
[[nodiscard]] std::string Listed(const std::vector<LeftBehind>& kinds);

/// All that was left behind of one file.
struct FileLeftBehind {
    std::string path;
    std::vector<LeftBehind> kinds;
    bool is_kept = false;  // the file as it was read has been kept
};

class LeftBehindFiles {
  public:
    /// A kind that is noted again replaces what was noted of it; a count of 0 is no finding.
    void Note(std::string_view path, LeftBehind kind);
    void Clear() { files_.clear(); }
    /// In the order in which they were noted.
    [[nodiscard]] const std::vector<FileLeftBehind>& Files() const { return files_; }

    /// Before `path` is replaced: keeps it for good if something of it was left behind. False
    /// where that cannot be done: then the file must stay.
    [[nodiscard]] bool KeepOriginal(FileSystem& disk, std::string_view path);

  private:
    [[nodiscard]] FileLeftBehind* Find(std::string_view path);

    std::vector<FileLeftBehind> files_;  // a handful
};

/// Keeps `path` as `path` + ".orig", or with a number behind that where another text has the name:
/// nothing is ever replaced. True also where the same bytes are kept already.
[[nodiscard]] bool KeepOriginal(FileSystem& disk, std::string_view path);

}  // namespace quorrel
