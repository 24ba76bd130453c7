// The text files of a project in their encodings, and the way a generated file is put in place.
#pragma once

#include <string>
#include <string_view>
#include <unordered_map>

#include "platform/encoding.hpp"
#include "platform/failure.hpp"
#include "platform/file_system.hpp"
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
    /// Starts over for another project: files read so far are forgotten, and the code page is
    /// that of the project's own `Language` option, unless the machine's is fixed. An empty or
    /// damaged option means the machine's.
    void StartProject(std::string_view language_option);

    /// The text of a project file. Its encoding is kept for the next Write to this path. Raises
    /// as FileSystem::ReadFile.
    [[nodiscard]] std::string Read(std::string_view path);
    /// The same of an XML file, whose declaration tells its encoding where no mark does.
    [[nodiscard]] std::string ReadXml(std::string_view path);
    /// The bytes for a text that goes to `path`: in the encoding that the file was read in, else
    /// in the code page.
    [[nodiscard]] std::string Encoded(std::string_view path, std::string_view text) const;
    void Write(std::string_view path, std::string_view text);

    /// The two halves of WriteAndSwap, for files that belong together.
    bool WriteTemporary(std::string_view path, std::string_view text, const Trap& trap);
    bool SwapIn(std::string_view path, Backup backup, const Trap& trap);
    /// Writes `text` to `path` + ".tmp" and puts that in the place of `path`. With Backup::kKept
    /// the old file becomes `path` + ".bak", an older one of that name being deleted. Where the
    /// ".tmp" cannot be written whole the log gets the failure, the old file stays and the
    /// result is false.
    bool WriteAndSwap(std::string_view path, std::string_view text, Backup backup,
                      const Trap& trap);

    /// The same for an XML file whose head says ISO-8859-1, whatever its encoding was before.
    bool WriteLatin1AndSwap(std::string_view path, std::string_view text, Backup backup,
                            const Trap& trap);

    [[nodiscard]] FileSystem& Files() const { return files_; }

  private:
    FileSystem& files_;
    MachineCodePage machine_;
    int code_page_;
    // Only files that are not plain code-page text are remembered.
    std::unordered_map<std::string, TextEncoding, IgnoringCaseHash, IgnoringCaseEqual> encodings_;
};

}  // namespace quorrel
