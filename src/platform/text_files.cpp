#include "platform/text_files.hpp"

#include <utility>

#include "platform/text.hpp"

namespace quorrel {

TextFiles::TextFiles(FileSystem& files, MachineCodePage machine)
    : files_(files), machine_(machine), code_page_(machine.number), known_(files) {}

void TextFiles::StartProject(std::string_view folder) {
    encodings_.clear();
    left_behind_.Clear();
    known_.Start(folder);
    put_beside_.clear();
    code_page_ = machine_.number;
}

void TextFiles::UseLanguage(std::string_view language_option) {
    const int of_project = machine_.chosen ? 0 : CodePageOfLanguageOption(language_option);
    code_page_ = of_project == 0 ? machine_.number : of_project;
}

/// Notes how the file was found, also where it cannot be read.
std::string TextFiles::ReadBytes(std::string_view path) {
    // Before it is read: a change that comes between is found out later.
    const auto stamp = files_.Stamp(path);
    try {
        std::string bytes = files_.ReadFile(path);
        known_.NoteRead(path, stamp, bytes);
        return bytes;
    } catch (const RuntimeError& error) {
        using namespace run_time_error;
        const bool is_missing = error.Number() == kFileNotFound || error.Number() == kPathNotFound;
        if (!is_missing) known_.NoteFailure(path, files_.NativePath(path) + ": " + error.what());
        throw;
    }
}

std::string TextFiles::Read(std::string_view path) {
    return DecodedFrom(path, ReadBytes(path));
}

std::string TextFiles::ReadAgain(std::string_view path) {
    return DecodedFrom(path, files_.ReadFile(path));
}

std::string TextFiles::DecodedFrom(std::string_view path, std::string bytes) {
    DecodedText decoded = DecodeProjectText(std::move(bytes), code_page_);
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
    return DecodeXmlText(ReadBytes(path), code_page_).text;
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
    const std::string bytes = Encoded(path, text);
    WriteWhole(files_, path, bytes);
    known_.NoteWritten(path, bytes);
}

bool KeepBackup(FileSystem& files, std::string_view path) {
    const std::string backup = std::string(path) + ".bak";
    if (files.FileExists(backup)) files.DeleteFile(backup);
    return files.LinkFile(path, backup) || files.CopyFile(path, backup, false);
}

bool TextFiles::WriteTemporary(std::string_view path, std::string_view bytes, const Trap& trap) {
    const std::string temporary = std::string(path) + ".tmp";
    const bool is_written = trap([&] {
        files_.WriteFile(temporary, bytes);
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
    const std::string bytes = Encoded(path, text);
    auto replacing = Replacing::kNow;
    if (!trap([&] { replacing = MayReplace(path, bytes); })) return false;
    if (replacing == Replacing::kNeedless) return true;
    if (!WriteTemporary(path, bytes, trap) || !SwapIn(path, backup, trap)) return false;
    known_.NoteWritten(path, bytes);
    if (put_beside_.erase(std::string(path)) > 0) files_.DeleteFile(BesideName(path));
    return true;
}

/// Raises where the file has to stay, with what has become of `bytes`.
TextFiles::Replacing TextFiles::MayReplace(std::string_view path, std::string_view bytes) {
    const std::string name = files_.NativePath(path);
    if (const std::string reason = known_.FailureOf(path); !reason.empty()) {
        throw RuntimeError(run_time_error::kPathFileAccess,
                           name + " stays as it is, since this could not be read: " + reason);
    }
    if (!may_replace) return Replacing::kNow;
    const Doubt doubt = known_.DoubtAbout(path);
    if (doubt == Doubt::kNone) return Replacing::kNow;
    // Nothing of ours is missing then.
    if (files_.ReadFile(path) == bytes) return Replacing::kNeedless;
    if (doubt == Doubt::kChanged && known_.WasLike(path, bytes)) return Replacing::kNeedless;
    if (may_replace(path, doubt)) {
        known_.Approve(path);
        return Replacing::kNow;
    }
    const std::string beside = BesideName(path);
    WriteWhole(files_, beside, bytes);
    put_beside_.emplace(path);
    throw RuntimeError(run_time_error::kPathFileAccess,
                       name + " was not replaced; your version is in " + files_.NativePath(beside));
}

std::string TextFiles::BesideName(std::string_view path) const {
    std::string name = known_.IsOutside(path) ? known_.Folder() + "\\" : std::string();
    name.append(name.empty() ? path : AfterLast(path, '\\'));
    return name + ".mine";
}

}  // namespace quorrel
