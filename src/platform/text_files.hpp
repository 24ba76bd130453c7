// The text files of a project in their encodings, and the way a generated file is put in place.
#pragma once

#include <functional>
#include <set>
#include <string>
#include <string_view>
#include <unordered_map>
#include <utility>
#include <vector>

#include "platform/encoding.hpp"
#include "platform/failure.hpp"
#include "platform/file_system.hpp"
#include "platform/known_files.hpp"
#include "platform/left_behind.hpp"
#include "platform/unicode.hpp"

namespace quorrel {

/// What becomes of the old file when a new one takes its place.
enum class Backup { kKept, kNone };

/// Makes `path` + ".bak" of the file, an older one being deleted. The file has both names until
/// its successor takes its own, so that it is never missing. False where it fails.
bool KeepBackup(FileSystem& files, std::string_view path);

class TextFiles {
  public:
    TextFiles(FileSystem& files, MachineCodePage machine);

    /// The code page of files that say nothing else.
    [[nodiscard]] int CodePageNumber() const { return code_page_; }
    /// Starts over for another project, whose files are below `folder`: what is known of files is
    /// forgotten, and the code page is that of the machine.
    void StartProject(std::string_view folder);
    /// The code page becomes that of the project's own `Language` option, unless the machine's is
    /// fixed. An empty or damaged option means the machine's.
    void UseLanguage(std::string_view language_option);

    /// The text of a project file. Its encoding is kept for the next Write to this path. Raises
    /// as FileSystem::ReadFile; a file that is there and cannot be read is not written any more.
    [[nodiscard]] std::string Read(std::string_view path);
    /// The same of a file that is about to be replaced: what is known of it stays.
    [[nodiscard]] std::string ReadAgain(std::string_view path);
    /// The same of an XML file, whose declaration tells its encoding where no mark does.
    [[nodiscard]] std::string ReadXml(std::string_view path);
    /// The bytes for a text that goes to `path`: in the encoding that the file was read in, else
    /// in the code page.
    [[nodiscard]] std::string Encoded(std::string_view path, std::string_view text) const;
    void Write(std::string_view path, std::string_view text);

    /// Tells of something in the file `path` that a save would leave out. Before the file is
    /// replaced for the first time it is kept with ".orig" behind its name; where that fails it is
    /// not replaced.
    void NoteLeftBehind(std::string_view path, LeftBehind kind) {
        left_behind_.Note(path, std::move(kind));
    }
    void NoteLeftBehind(std::string_view path, std::vector<LeftBehind> kinds) {
        for (LeftBehind& kind : kinds) left_behind_.Note(path, std::move(kind));
    }
    [[nodiscard]] const std::vector<FileLeftBehind>& FilesLeftBehind() const {
        return left_behind_.Files();
    }

    /// Writes `text` to `path` + ".tmp" and puts that in the place of `path`. With Backup::kKept
    /// the old file becomes `path` + ".bak", an older one of that name being deleted. Where the
    /// ".tmp" cannot be written whole, or cannot take its place, the log gets the failure, the old
    /// file stays without a ".tmp" beside it, and the result is false. The bytes are on the disk
    /// then; FileSystem::FlushNames brings the names there, once for all files of a save.
    /// A file that could not be read stays. Where another may not be replaced, by may_replace,
    /// `text` goes beside it with ".mine" behind the name. Both are logged as failures. A file
    /// that another program has changed stays without a question where `text` is what was read.
    bool WriteAndSwap(std::string_view path, std::string_view text, Backup backup,
                      const Trap& trap);

    /// The same for an XML text whose head says ISO-8859-1, whatever the file's encoding was
    /// before. Where the text does not fit that, both are UTF-8.
    bool WriteXmlAndSwap(std::string_view path, std::string text, Backup backup, const Trap& trap);

    /// Whether a file may be replaced although there is a doubt about it; without this it may.
    std::function<bool(std::string_view path, Doubt doubt)> may_replace;
    /// Before a file of which `text` was read is replaced for the first time there is a doubt, if
    /// `text` does not look like one that has these marks.
    void CheckKind(std::string_view path, std::string_view text,
                   std::initializer_list<std::string_view> marks) {
        if (!LooksLike(text, marks)) known_.NoteOtherKind(path);
    }
    /// Where the text goes that may not replace `path`: beside it, or into the project's folder.
    [[nodiscard]] std::string BesideName(std::string_view path) const;
    /// What is known of the project's files.
    [[nodiscard]] KnownFiles& Known() { return known_; }

    [[nodiscard]] FileSystem& Files() const { return files_; }

  private:
    enum class Replacing { kNow, kNeedless };
    [[nodiscard]] std::string ReadBytes(std::string_view path);
    [[nodiscard]] std::string DecodedFrom(std::string_view path, std::string bytes);
    [[nodiscard]] Replacing MayReplace(std::string_view path, std::string_view bytes);
    bool WriteTemporary(std::string_view path, std::string_view bytes, const Trap& trap);
    bool SwapIn(std::string_view path, Backup backup, const Trap& trap);
    [[nodiscard]] bool MakeRoom(std::string_view path, Backup backup, const Trap& trap);

    FileSystem& files_;
    MachineCodePage machine_;
    int code_page_;
    // Only files that are not plain code-page text are remembered.
    std::unordered_map<std::string, TextEncoding, IgnoringCaseHash, IgnoringCaseEqual> encodings_;
    LeftBehindFiles left_behind_;
    KnownFiles known_;
    std::set<std::string> put_beside_;  // files that could not be replaced
};

}  // namespace quorrel
