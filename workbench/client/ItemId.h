#pragma once

#include <windows.h>

#include <shtypes.h>

#include <optional>
#include <string>

namespace wb {

/// An item id list with one item, the file of that name in the shell folder it came from; the
/// caller's, to be freed with CoTaskMemFree. Raises std::bad_alloc.
LPITEMIDLIST makeItemId(const std::wstring& fileName);

/// The file name of an item id list that makeItemId made; nothing for any other list.
std::optional<std::wstring> fileNameOf(LPCITEMIDLIST item);

}  // namespace wb
