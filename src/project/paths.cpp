#include "project/paths.hpp"

#include <algorithm>
#include <array>
#include <cstdio>
#include <iterator>

#include "platform/text.hpp"
#include "platform/unicode.hpp"

namespace quorrel {
namespace {

constexpr std::string_view kAddressSchemes[] = {
    "http:", "https:", "ftp:", "mailto:", "ms-its:", "mk:"};

/// The length of the "\\server\share" that a path begins with, or 0.
std::size_t ShareLength(std::string_view path) {
    if (!path.starts_with("\\\\")) return 0;
    const std::size_t server_end = path.find('\\', 2);
    if (server_end == npos || server_end == 2) return 0;
    const std::size_t share_end = std::min(path.find('\\', server_end + 1), path.size());
    return share_end == server_end + 1 ? 0 : share_end;
}

std::string HalveBackslashes(std::string_view path) {
    return ReplaceAll(path, "\\\\", "\\");
}

/// `rest` in `folder`, the two backslashes before a server kept.
std::string InFolder(std::string_view folder, std::string_view rest) {
    const std::string path = HalveBackslashes(std::string(folder).append("\\").append(rest));
    return ShareLength(folder) > 0 ? "\\" + path : path;
}

/// The folder above `folder`, which stays as it is where it is a drive or a share.
std::string_view FolderAbove(std::string_view folder) {
    const std::size_t last = folder.rfind('\\');
    return last == npos || last < ShareLength(folder) ? folder : folder.substr(0, last);
}

/// The first place of `folder` in `path`, case ignored, where a name ends: a backslash follows or
/// nothing.
std::optional<TextSpan> FindFolder(std::string_view path, std::string_view folder) {
    std::size_t from = 0;
    while (const auto hit = FindIgnoringCase(path.substr(from), folder)) {
        const TextSpan place{from + hit->offset, hit->size};
        const std::size_t end = place.offset + place.size;
        if (end == path.size() || path[end] == '\\') return place;
        if (folder.empty()) break;
        from = place.offset;
        (void)NextCodePoint(path, from);
    }
    return std::nullopt;
}

}  // namespace

bool IsAddress(std::string_view location) {
    return std::any_of(std::begin(kAddressSchemes), std::end(kAddressSchemes),
                       [&](std::string_view scheme) {
                           return EqualsIgnoringCase(location.substr(0, scheme.size()), scheme);
                       });
}

bool IsFullPath(std::string_view path) {
    return Contains(path, ":") || ShareLength(path) > 0;
}

std::string FullLocation(std::string_view location, std::string_view base) {
    return IsAddress(location) ? std::string(location) : MakeFullPathRel(location, base);
}

std::string RelativeLocation(std::string_view location, std::string_view base) {
    return IsAddress(location) ? std::string(location) : MakeRelPathRel(location, base);
}

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
    return IsFullPath(turned) ? turned : InFolder(proj_path, turned);
}

std::string MakeFullPathRel(std::string_view path, std::string_view base) {
    if (path.empty()) return {};
    std::string_view folder = BeforeLast(base, '\\', base);
    std::string turned = ReplaceAll(path, "/", "\\");
    if (IsFullPath(turned)) return turned;
    // Always the first "..\" goes, also one that a removal has joined.
    std::string rest;
    rest.reserve(turned.size());
    for (const char c : turned) {
        rest += c;
        if (!rest.ends_with("..\\")) continue;
        rest.resize(rest.size() - 3);
        folder = FolderAbove(folder);
    }
    return InFolder(folder, rest);
}

std::string MakeRelPathRel(std::string_view path, std::string_view base) {
    if (path.empty()) return {};
    const std::string turned = ReplaceAll(path, "/", "\\");
    std::string_view folder = BeforeLast(base, '\\', base);
    std::string prefix;
    for (;;) {
        if (const auto hit = FindFolder(turned, folder)) {
            const std::size_t rest = std::min(hit->offset + hit->size + 1, turned.size());
            return HalveBackslashes(prefix.append(turned, rest));
        }
        const std::string_view above = FolderAbove(folder);
        if (above == folder) return std::string(path);
        folder = above;
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
    const auto hit = FindFolder(path, proj_path);
    return std::string(hit ? path.substr(hit->offset + hit->size) : path);
}

}  // namespace quorrel
