#include "platform/installation.hpp"
#include "platform/text.hpp"
#include "platform/windows_api.hpp"

namespace quorrel {

std::string NativeProgramFolder() {
    constexpr DWORD kLongest = 32768;
    std::wstring path(kLongest, L'\0');
    path.resize(GetModuleFileNameW(nullptr, path.data(), kLongest));
    return std::string(BeforeLast(Narrow(path), '\\', {}));
}

}  // namespace quorrel
