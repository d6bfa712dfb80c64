#pragma once

#include <string>
#include <string_view>

namespace wb {

/// Whether a path with backslashes begins at a drive's root or at a share.
bool isFullPath(std::wstring_view path);

/// A full path with backslashes only and no "." or ".." in it; another path as it stands. Raises
/// StoreError E_QVT_PATH_TOO_LONG.
std::wstring plainPath(std::wstring_view path);

/// Without the backslash at its end, also of a drive's root.
std::wstring plainFolder(std::wstring_view path);

/// The folder of a file, without a backslash at its end.
std::wstring folderOf(std::wstring_view path);

}  // namespace wb
