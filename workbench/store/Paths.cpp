#include "store/Paths.h"

#include <windows.h>

#include <algorithm>

#include "core/ResultCodes.h"
#include "store/Store.h"

namespace wb {

bool isFullPath(std::wstring_view path) {
  return (path.size() > 2 && path[1] == L':' && path[2] == L'\\') || path.substr(0, 2) == L"\\\\";
}

std::wstring plainPath(std::wstring_view path) {
  std::wstring result(path);
  std::replace(result.begin(), result.end(), L'/', L'\\');
  if (isFullPath(result)) {
    const DWORD size = GetFullPathNameW(result.c_str(), 0, nullptr, nullptr);
    std::wstring full(size, L'\0');
    full.resize(GetFullPathNameW(result.c_str(), size, full.data(), nullptr));
    result = full;
  }
  if (result.size() < MAX_PATH) return result;
  throw StoreError(E_QVT_PATH_TOO_LONG,
                   result + L" has more than " + std::to_wstring(MAX_PATH - 1) + L" characters");
}

std::wstring plainFolder(std::wstring_view path) {
  std::wstring result = plainPath(path);
  while (!result.empty() && result.back() == L'\\') result.pop_back();
  return result;
}

std::wstring folderOf(std::wstring_view path) {
  return std::wstring(path.substr(0, path.rfind(L'\\')));
}

}  // namespace wb
