// Single keys of the settings file of the machine.
#pragma once

#include <string>
#include <string_view>

namespace quorrel {

struct MainForm;

/// At most 299 characters of the value, or of `otherwise`.
[[nodiscard]] std::string GetIni(const MainForm& main, std::string_view section,
                                 std::string_view key, std::string_view otherwise);
/// A file that cannot be written loses the value.
void SetIni(MainForm& main, std::string_view section, std::string_view key, std::string_view value);

}  // namespace quorrel
