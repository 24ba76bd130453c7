// Private-profile files on disk.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "platform/text_files.hpp"

namespace quorrel {

/// The classic read buffer: 300 characters, of which 299 can be filled.
inline constexpr std::size_t kProfileValueLimit = 299;

/// Keys with their values.
using ProfilePairs = std::vector<std::pair<std::string, std::string>>;

/// Reads and writes single keys. A bare file name, without a folder, stands for the system's
/// folder of settings.
class ProfileStore {
  public:
    /// `settings_folder` is a Windows path without a backslash at its end.
    ProfileStore(TextFiles& texts, std::string settings_folder);

    /// The value, cut to `limit` characters and at the first NUL; `otherwise`, cut likewise,
    /// where the file or the key is missing.
    [[nodiscard]] std::string Get(std::string_view file, std::string_view section,
                                  std::string_view key, std::string_view otherwise,
                                  std::size_t limit = kProfileValueLimit) const;
    /// Replaces or adds the keys of one section, all with one writing of the file, and with none
    /// where they say so already. A file that cannot be read or written loses the values and the
    /// result is false; a missing file is made, with its folder if that is the settings folder.
    [[nodiscard]] bool Set(std::string_view file, std::string_view section,
                           const ProfilePairs& pairs);

    /// The full path of a profile file.
    [[nodiscard]] std::string PathOf(std::string_view file) const;

  private:
    TextFiles& texts_;
    std::string settings_folder_;
};

/// The system's folder of settings, as a native path: `$XDG_CONFIG_HOME/quorrel`, by default
/// `~/.config/quorrel`; on Windows the Windows folder, as for every file that the profile calls
/// take without a folder, unless that variable is set.
[[nodiscard]] std::string NativeSettingsFolder();

}  // namespace quorrel
