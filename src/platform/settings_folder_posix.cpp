#include <cstdlib>

#include "platform/profile_store.hpp"

namespace quorrel {

std::string NativeSettingsFolder() {
    const char* config = std::getenv("XDG_CONFIG_HOME");
    if (config != nullptr && *config == '/') return std::string(config) + "/quorrel";
    const char* home = std::getenv("HOME");
    return std::string(home == nullptr ? "" : home) + "/.config/quorrel";
}

}  // namespace quorrel
