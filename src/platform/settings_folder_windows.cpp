#include "platform/profile_store.hpp"
#include "platform/windows_api.hpp"

namespace quorrel {

std::string NativeSettingsFolder() {
    std::wstring folder(32768, L'\0');
    const auto size = static_cast<DWORD>(folder.size());
    const DWORD chosen = GetEnvironmentVariableW(L"XDG_CONFIG_HOME", folder.data(), size);
    if (chosen > 0 && chosen < size) {
        folder.resize(chosen);
        return Narrow(folder) + "\\quorrel";
    }
    folder.resize(GetWindowsDirectoryW(folder.data(), size));
    return Narrow(folder);
}

}  // namespace quorrel
