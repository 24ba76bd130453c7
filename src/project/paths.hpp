// Paths of a project and colours: text rules, no file is touched.
#pragma once

#include <cstdint>
#include <string>
#include <string_view>

namespace quorrel {

/// `path` relative to the folder of the open document `main_path`, without "file://"; the exact
/// spelling decides. A path elsewhere stays as it is.
[[nodiscard]] std::string GetRelativePath(std::string_view path, std::string_view main_path);

/// Whether a location is that of a page elsewhere ("http:", "mailto:", "ms-its:" ...), which is no
/// path and stays as it is written.
[[nodiscard]] bool IsAddress(std::string_view location);
/// Whether a path, which has no "/", begins with a drive or with a share ("\\server\share").
[[nodiscard]] bool IsFullPath(std::string_view path);

/// A project-relative path made absolute. A full path only gets its slashes turned.
[[nodiscard]] std::string MakeFullPath(std::string_view path, std::string_view proj_path);

/// A path relative to the file `base` made absolute. A full path only gets its slashes turned.
[[nodiscard]] std::string MakeFullPathRel(std::string_view path, std::string_view base);

/// An absolute path made relative to the file `base`. The folder of `base` may match anywhere
/// in `path`, but whole names only: "help" is no part of "help-common". Where no folder of `base`
/// matches, `path` comes back unchanged.
[[nodiscard]] std::string MakeRelPathRel(std::string_view path, std::string_view base);

/// MakeFullPathRel and MakeRelPathRel for what a contents item or a keyword leads to, which may
/// be an address.
[[nodiscard]] std::string FullLocation(std::string_view location, std::string_view base);
[[nodiscard]] std::string RelativeLocation(std::string_view location, std::string_view base);

/// "#RRGGBB" of a colour whose lowest byte is red.
[[nodiscard]] std::string FormatRGBString(std::int32_t color);
/// The inverse; digits that are missing or no digits end the number.
[[nodiscard]] std::int32_t RevFormatRGBString(std::string_view text);

/// `proj` up to its last ".", which is not included; all of it without one.
[[nodiscard]] std::string_view BaseName(std::string_view proj);

/// A topic's SubItems(2): `path` behind the first place of the folder `proj_path` in it, case
/// ignored, so that it begins with a backslash; a path elsewhere stays as it is.
[[nodiscard]] std::string LocationOf(std::string_view path, std::string_view proj_path);

}  // namespace quorrel
