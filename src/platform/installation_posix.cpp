#include <filesystem>
#include <system_error>

#include "platform/installation.hpp"

namespace quorrel {

std::string NativeProgramFolder() {
    std::error_code error;
    const auto program = std::filesystem::read_symlink("/proc/self/exe", error);
    return error ? std::string() : program.parent_path().string();
}

}  // namespace quorrel
