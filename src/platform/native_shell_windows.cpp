#include "platform/failure.hpp"
#include "platform/native_shell.hpp"
#include "platform/text.hpp"
#include "platform/windows_api.hpp"

#include <shellapi.h>

namespace quorrel {
namespace {

using namespace run_time_error;

constexpr std::string_view kBlanks = " \t";

std::string_view TrimBlanks(std::string_view text) {
    text.remove_prefix(std::min(text.find_first_not_of(kBlanks), text.size()));
    return text;
}

bool HasFolder(std::string_view name) {
    return name.find_first_of("/\\:") != npos;
}

/// Takes the program off the front of `line`.
std::string TakeProgram(NativeFileSystem& files, std::string_view& line) {
    const auto take = [&](std::size_t begin, std::size_t end, std::size_t behind) {
        const std::string name(line.substr(begin, end - begin));
        line = TrimBlanks(line.substr(std::min(behind, line.size())));
        return name;
    };
    if (line.starts_with('"')) {
        const std::size_t end = std::min(line.find('"', 1), line.size());
        return take(1, end, end + 1);
    }
    for (std::size_t end = line.size(); end != npos && end > 0;
         end = line.find_last_of(kBlanks, end - 1)) {
        const std::string_view name = line.substr(0, end);
        if (HasFolder(name) && files.FileExists(name)) return take(0, end, end);
    }
    const std::size_t end = std::min(line.find_first_of(kBlanks), line.size());
    return take(0, end, end);
}

/// Looks the program up in PATH, and not in the current folder, which may be that of a project
/// from anywhere. Empty where there is none.
std::wstring FindInPath(const std::wstring& name) {
    std::wstring folders(GetEnvironmentVariableW(L"PATH", nullptr, 0), L'\0');
    if (folders.empty()) return {};
    folders.resize(
        GetEnvironmentVariableW(L"PATH", folders.data(), static_cast<DWORD>(folders.size())));
    std::wstring found(32768, L'\0');
    const DWORD size = SearchPathW(folders.c_str(), name.c_str(), L".exe",
                                   static_cast<DWORD>(found.size()), found.data(), nullptr);
    found.resize(size);
    return found;
}

int ShowStyle(WindowStyle style) {
    return style == WindowStyle::kMinimized ? SW_SHOWMINIMIZED : SW_SHOWNORMAL;
}

void OpenDocument(std::string_view document, WindowStyle style) {
    if (document.size() >= 2 && document.starts_with('"') && document.ends_with('"')) {
        document = document.substr(1, document.size() - 2);
    }
    constexpr INT_PTR kLastError = 32;
    const HINSTANCE result =
        ShellExecuteW(nullptr, L"open", Wide(document).c_str(), nullptr, nullptr, ShowStyle(style));
    if (reinterpret_cast<INT_PTR>(result) <= kLastError) throw RuntimeError(kFileNotFound);
}

}  // namespace

void NativeShell::Start(std::string_view command_line, WindowStyle style) {
    std::string_view line = TrimBlanks(command_line);
    if (Contains(line, std::string_view("\0", 1))) throw RuntimeError(kInvalidArgument);
    const std::string name = TakeProgram(files_, line);
    if (LowerAscii(name) == "start") return OpenDocument(line, style);
    if (HasFolder(name) && !files_.FileExists(name)) throw RuntimeError(kFileNotFound);
    const std::wstring program = HasFolder(name) ? WidePath(name) : FindInPath(Wide(name));
    if (program.empty()) throw RuntimeError(kFileNotFound);
    std::wstring words = L"\"" + program + L"\"";
    // The arguments are the program's own to take apart here.
    if (!line.empty()) words += L" " + Wide(line);
    STARTUPINFOW startup{};
    startup.cb = sizeof startup;
    startup.dwFlags = STARTF_USESHOWWINDOW;
    startup.wShowWindow = static_cast<WORD>(ShowStyle(style));
    PROCESS_INFORMATION process{};
    if (CreateProcessW(program.c_str(), words.data(), nullptr, nullptr, FALSE, 0, nullptr, nullptr,
                       &startup, &process) == 0) {
        throw RuntimeError(kInvalidArgument);
    }
    CloseHandle(process.hThread);
    CloseHandle(process.hProcess);
}

}  // namespace quorrel
