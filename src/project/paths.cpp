#include "project/paths.hpp"

#include <array>
#include <cstdio>

#include "platform/text.hpp"
#include "platform/unicode.hpp"

namespace quorrel {
namespace {

std::string HalveBackslashes(std::string_view path) {
    return ReplaceAll(path, "\\\\", "\\");
}

}  // namespace

std::string_view BaseName(std::string_view proj) {
    return BeforeLast(proj, '.', proj);
}

std::string GetRelativePath(std::string_view path, std::string_view main_path) {
    std::string result = ReplaceAll(path, "file://", "");
    if (result.empty()) return {};
    const std::string_view folder = main_path.substr(0, main_path.rfind('\\') + 1);
    const std::string_view prefix = folder.empty() ? main_path : folder;
    if (result.starts_with(prefix)) result.erase(0, prefix.size());
    return result;
}

std::string MakeFullPath(std::string_view path, std::string_view proj_path) {
    if (path.empty()) return {};
    std::string turned = ReplaceAll(path, "/", "\\");
    if (Contains(path, ":")) return turned;
    return HalveBackslashes(std::string(proj_path).append("\\").append(turned));
}

std::string MakeFullPathRel(std::string_view path, std::string_view base) {
    if (path.empty()) return {};
    std::string_view folder = BeforeLast(base, '\\', base);
    std::string turned = ReplaceAll(path, "/", "\\");
    if (Contains(turned, ":")) return turned;
    // Always the first "..\" goes, also one that a removal has joined.
    std::string rest;
    rest.reserve(turned.size());
    for (const char c : turned) {
        rest += c;
        if (!rest.ends_with("..\\")) continue;
        rest.resize(rest.size() - 3);
        folder = BeforeLast(folder, '\\', folder);
    }
    return HalveBackslashes(std::string(folder).append("\\").append(rest));
}

std::string MakeRelPathRel(std::string_view path, std::string_view base) {
    if (path.empty()) return {};
    const std::string turned = ReplaceAll(path, "/", "\\");
    std::string_view folder = BeforeLast(base, '\\', base);
    std::string prefix;
    for (;;) {
        if (const auto hit = FindIgnoringCase(turned, folder)) {
            std::size_t rest = hit->offset + hit->size;
            // The one character behind the folder, meant to be the backslash.
            if (rest < turned.size()) (void)NextCodePoint(turned, rest);
            return HalveBackslashes(prefix.append(turned, rest));
        }
        if (!Contains(folder, "\\")) return std::string(path);
        folder = BeforeLast(folder, '\\', folder);
        prefix += "..\\";
    }
}

std::string FormatRGBString(std::int32_t color) {
    std::array<char, 16> digits{};
    std::snprintf(digits.data(), digits.size(), "%06X", static_cast<unsigned>(color));
    const std::string_view text(digits.data());
    return std::string("#")
        .append(text.substr(text.size() - 2))
        .append(text.substr(2, 2))
        .append(text.substr(0, 2));
}

std::int32_t RevFormatRGBString(std::string_view text) {
    const std::string digits = ReplaceAll(text, "#", "");
    std::string number;
    for (const std::size_t pair : {4U, 2U, 0U}) {
        if (pair < digits.size()) number += digits.substr(pair, 2);
    }
    std::int32_t value = 0;
    for (const char c : number) {
        const char upper = UpperAscii(c);
        if (c >= '0' && c <= '9') {
            value = value * 16 + (c - '0');
        } else if (upper >= 'A' && upper <= 'F') {
            value = value * 16 + (upper - 'A' + 10);
        } else {
            break;
        }
    }
    return value;
}

std::string LocationOf(std::string_view path, std::string_view proj_path) {
    const auto hit = FindIgnoringCase(path, proj_path);
    return std::string(hit ? path.substr(hit->offset + hit->size) : path);
}

}  // namespace quorrel
