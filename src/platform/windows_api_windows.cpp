#include "platform/failure.hpp"
#include "platform/native_file_system.hpp"
#include "platform/windows_api.hpp"

namespace quorrel {

std::wstring Wide(std::string_view text) {
    const int size = static_cast<int>(text.size());
    std::wstring wide(static_cast<std::size_t>(size), L'\0');
    if (size == 0) return wide;
    const int count = MultiByteToWideChar(CP_UTF8, 0, text.data(), size, wide.data(), size);
    wide.resize(static_cast<std::size_t>(count));
    return wide;
}

std::string Narrow(std::wstring_view text) {
    if (text.empty()) return {};
    const int size = static_cast<int>(text.size());
    std::string narrow(text.size() * 3, '\0');  // bytes of a unit at most
    const int count = WideCharToMultiByte(CP_UTF8, 0, text.data(), size, narrow.data(),
                                          static_cast<int>(narrow.size()), nullptr, nullptr);
    narrow.resize(static_cast<std::size_t>(count));
    return narrow;
}

std::wstring WidePath(std::string_view path) {
    if (path.empty() || IsNoPath(path)) throw RuntimeError(run_time_error::kFileNotFound);
    const std::wstring given = Wide(path);
    std::wstring full(static_cast<std::size_t>(MAX_PATH), L'\0');
    DWORD size = GetFullPathNameW(given.c_str(), MAX_PATH, full.data(), nullptr);
    if (size > full.size()) {
        full.resize(size);
        size = GetFullPathNameW(given.c_str(), size, full.data(), nullptr);
    }
    if (size == 0) throw RuntimeError(run_time_error::kFileNotFound);
    full.resize(size);
    // A folder's own limit is a little lower than a file's.
    constexpr std::size_t kLongPath = 240;
    if (full.size() < kLongPath || full.starts_with(L"\\\\?\\") || full.starts_with(L"\\\\.\\")) {
        return full;
    }
    return full.starts_with(L"\\\\") ? L"\\\\?\\UNC" + full.substr(1) : L"\\\\?\\" + full;
}

}  // namespace quorrel
