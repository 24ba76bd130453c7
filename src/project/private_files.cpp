#include "project/private_files.hpp"

#include <array>
#include <charconv>
#include <cstdint>

#include "app/main_form.hpp"
#include "platform/unicode.hpp"

namespace quorrel {
namespace {

/// Sixteen digits that stay the same from run to run (FNV-1a): other runs look for the name.
std::string NameOfPath(std::string_view path) {
    std::uint64_t hash = 14695981039346656037U;
    for (const char c : UpperUnicode(path)) {
        hash = (hash ^ static_cast<unsigned char>(c)) * 1099511628211U;
    }
    std::array<char, 16> digits{};
    const auto end = std::to_chars(digits.data(), digits.data() + digits.size(), hash, 16).ptr;
    const std::string name(digits.data(), end);
    return std::string(digits.size() - name.size(), '0') + name;
}

}  // namespace

std::string PrivateFolder(const MainForm& main, std::string_view proj) {
    const std::string path = main.files.WindowsPath(main.files.NativePath(proj));
    return main.machine_profiles.PathOf("projects") + "\\" + NameOfPath(path);
}

std::string PrivateFile(const MainForm& main, std::string_view proj, std::string_view name) {
    return PrivateFolder(main, proj).append("\\").append(name);
}

void WritePrivateFile(const MainForm& main, std::string_view proj, std::string_view name,
                      std::string_view bytes) {
    MakeFolder(main.files, PrivateFolder(main, proj));
    WriteWhole(main.files, PrivateFile(main, proj, name), bytes);
}

}  // namespace quorrel
