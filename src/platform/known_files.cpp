#include "platform/known_files.hpp"

#include <algorithm>

#include "platform/text.hpp"

namespace quorrel {
namespace {

std::size_t HashOf(std::string_view bytes) {
    return std::hash<std::string_view>{}(bytes);
}

/// With ".." taken back, so that it can be told where the file is.
std::string Plain(const FileSystem& files, std::string_view path) {
    return files.WindowsPath(files.NativePath(path));
}

}  // namespace

void KnownFiles::Start(std::string_view folder) {
    records_.clear();
    folder_ = folder.empty() ? std::string() : Plain(files_, folder);
}

void KnownFiles::NoteRead(std::string_view path, const std::optional<FileStamp>& stamp,
                          std::string_view bytes) {
    Record& record = records_[std::string(path)];
    if (record.is_known || !stamp) return;
    record.is_known = true;
    record.state = State{*stamp, HashOf(bytes)};
}

void KnownFiles::NoteWritten(std::string_view path, std::string_view bytes) {
    Record& record = records_[std::string(path)];
    record.is_known = true;
    record.is_other_kind = false;
    record.state.reset();
    if (const auto stamp = files_.Stamp(path)) record.state = State{*stamp, HashOf(bytes)};
}

void KnownFiles::NoteAbsent(std::string_view path) {
    if (path.empty() || files_.FileExists(path)) return;
    records_.try_emplace(std::string(path)).first->second.is_known = true;
}

void KnownFiles::Approve(std::string_view path) {
    Record& record = records_[std::string(path)];
    record.is_approved = record.is_known = true;
    record.state.reset();
    const auto stamp = files_.Stamp(path);
    if (stamp) record.state = State{*stamp, HashOf(files_.ReadFile(path))};
}

void KnownFiles::NoteFailure(std::string_view path, std::string_view reason) {
    std::string& failure = records_[std::string(path)].failure;
    if (failure.empty()) failure = reason;
}

std::string KnownFiles::FailureOf(std::string_view path) const {
    const auto found = records_.find(path);
    return found == records_.end() ? std::string() : found->second.failure;
}

std::vector<std::pair<std::string, std::string>> KnownFiles::Failures() const {
    std::vector<std::pair<std::string, std::string>> failures;
    for (const auto& [path, record] : records_) {
        if (!record.failure.empty()) failures.emplace_back(path, record.failure);
    }
    std::sort(failures.begin(), failures.end());
    return failures;
}

bool KnownFiles::HasChanged(std::string_view path, const FileStamp& now, Record& record) {
    if (!record.state) return true;
    if (record.state->stamp == now) return false;
    if (HashOf(files_.ReadFile(path)) != record.state->hash) return true;
    record.state->stamp = now;
    return false;
}

Doubt KnownFiles::DoubtAbout(std::string_view path) {
    const auto stamp = files_.Stamp(path);
    if (!stamp) return Doubt::kNone;
    const auto found = records_.find(path);
    if (found == records_.end() || !found->second.is_known) return Doubt::kNotRead;
    Record& record = found->second;
    if (HasChanged(path, *stamp, record)) return Doubt::kChanged;
    if (record.is_approved) return Doubt::kNone;
    if (IsOutside(path)) return Doubt::kOutside;
    return record.is_other_kind ? Doubt::kOtherKind : Doubt::kNone;
}

bool KnownFiles::TakeNewsOfChange(std::string_view path) {
    const auto found = records_.find(path);
    if (found == records_.end() || DoubtAbout(path) != Doubt::kChanged) return false;
    const auto stamp = files_.Stamp(path);
    return std::exchange(found->second.told, stamp) != stamp;
}

bool KnownFiles::WasLike(std::string_view path, std::string_view bytes) const {
    const auto found = records_.find(path);
    return found != records_.end() && found->second.state &&
           found->second.state->hash == HashOf(bytes);
}

bool KnownFiles::IsOutside(std::string_view path) const {
    if (folder_.empty()) return false;
    const std::string below = folder_ + (folder_.ends_with('\\') ? "" : "\\");
    const std::string plain = Plain(files_, path);
    const auto found = FindIgnoringCase(plain, below);
    return !found || found->offset != 0;
}

bool LooksLike(std::string_view text, std::initializer_list<std::string_view> marks) {
    for (const std::string_view mark : marks) {
        if (ContainsIgnoringAsciiCase(text, mark)) return true;
    }
    bool in_tag = false;
    for (const char c : text) {
        if (c == '<') in_tag = true;
        const bool is_blank = c == ' ' || c == '\t' || c == '\r' || c == '\n';
        if (!in_tag && !is_blank) return false;
        if (c == '>') in_tag = false;
    }
    return true;
}

}  // namespace quorrel
