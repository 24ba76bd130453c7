// The Windows calls, for the files of the platform layer that are built there only.
#pragma once

#include <string>
#include <string_view>

#ifndef NOMINMAX
#define NOMINMAX
#endif
#ifndef WIN32_LEAN_AND_MEAN
#define WIN32_LEAN_AND_MEAN
#endif
#include <windows.h>

// Macros that would rename operations of FileSystem.
#undef CopyFile
#undef DeleteFile
#undef MoveFile
#undef ReplaceFile

namespace quorrel {

/// Between UTF-8 and the system's own text.
[[nodiscard]] std::wstring Wide(std::string_view text);
[[nodiscard]] std::string Narrow(std::wstring_view text);

/// A full path for the wide calls, longer than 260 characters too. A relative one is taken from
/// the current folder. Raises 53 for what cannot be a path.
[[nodiscard]] std::wstring WidePath(std::string_view path);

}  // namespace quorrel
