#include "platform/text_files.hpp"

#include <utility>

namespace quorrel {

TextFiles::TextFiles(FileSystem& files, MachineCodePage machine)
    : files_(files), machine_(machine), code_page_(machine.number) {}

void TextFiles::StartProject(std::string_view language_option) {
    encodings_.clear();
    left_behind_.Clear();
    const int of_project = machine_.chosen ? 0 : CodePageOfLanguageOption(language_option);
    code_page_ = of_project == 0 ? machine_.number : of_project;
}

std::string TextFiles::Read(std::string_view path) {
    DecodedText decoded = DecodeProjectText(files_.ReadFile(path), code_page_);
    if (decoded.encoding.form == TextEncoding::Form::kAnsi) {
        if (const auto known = encodings_.find(path); known != encodings_.end()) {
            encodings_.erase(known);
        }
    } else {
        encodings_[std::string(path)] = decoded.encoding;
    }
    return std::move(decoded.text);
}

std::string TextFiles::ReadXml(std::string_view path) {
    return DecodeXmlText(files_.ReadFile(path), code_page_).text;
}

bool TextFiles::WriteXmlAndSwap(std::string_view path, std::string text, Backup backup,
                                const Trap& trap) {
    const DecodedText xml = XmlToWrite(std::move(text));
    encodings_[std::string(path)] = xml.encoding;
    return WriteAndSwap(path, xml.text, backup, trap);
}

std::string TextFiles::Encoded(std::string_view path, std::string_view text) const {
    const auto known = encodings_.find(path);
    if (known != encodings_.end()) return EncodeProjectText(text, known->second);
    return EncodeProjectText(text, {TextEncoding::Form::kAnsi, code_page_});
}

void TextFiles::Write(std::string_view path, std::string_view text) {
    WriteWhole(files_, path, Encoded(path, text));
}

bool KeepBackup(FileSystem& files, std::string_view path) {
    const std::string backup = std::string(path) + ".bak";
    if (files.FileExists(backup)) files.DeleteFile(backup);
    return files.LinkFile(path, backup) || files.CopyFile(path, backup, false);
}

bool TextFiles::WriteTemporary(std::string_view path, std::string_view text, const Trap& trap) {
    const std::string temporary = std::string(path) + ".tmp";
    const bool is_written = trap([&] {
        files_.WriteFile(temporary, Encoded(path, text));
        files_.FlushFile(temporary);
    });
    if (is_written) return true;
    files_.DeleteFile(temporary);
    return false;
}

/// Keeps what has to stay of the file that is about to be replaced.
bool TextFiles::MakeRoom(std::string_view path, Backup backup, const Trap& trap) {
    if (!files_.FileExists(path)) return true;
    if (!left_behind_.KeepOriginal(files_, path)) {
        return trap([&] {
            throw RuntimeError(
                run_time_error::kPathFileAccess,
                files_.NativePath(path) + " was not replaced: no original of it could be kept");
        });
    }
    if (backup == Backup::kNone || KeepBackup(files_, path)) return true;
    return trap([] { throw RuntimeError(run_time_error::kPathFileAccess); });
}

bool TextFiles::SwapIn(std::string_view path, Backup backup, const Trap& trap) {
    const std::string target(path);
    const std::string temporary = target + ".tmp";
    bool done = MakeRoom(target, backup, trap);
    if (done && !files_.ReplaceFile(temporary, target)) {
        done = trap([] { throw RuntimeError(run_time_error::kPathFileAccess); });
    }
    if (!done) files_.DeleteFile(temporary);
    return done;
}

bool TextFiles::WriteAndSwap(std::string_view path, std::string_view text, Backup backup,
                             const Trap& trap) {
    return WriteTemporary(path, text, trap) && SwapIn(path, backup, trap);
}

}  // namespace quorrel
