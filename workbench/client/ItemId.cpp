#include "client/ItemId.h"

#include <objbase.h>

#include <algorithm>
#include <cstring>
#include <new>

namespace wb {
namespace {

/// In front of the name in an item's bytes: tells the client's own items from those of other
/// folders.
constexpr char mark[] = {'T', 'V', 'F', '1'};
constexpr size_t headSize = sizeof(USHORT) + sizeof(mark);

}  // namespace

LPITEMIDLIST makeItemId(const std::wstring& fileName) {
  const size_t nameSize = fileName.size() * sizeof(wchar_t);
  const size_t itemSize = headSize + nameSize;
  // A list ends with an item of size 0.
  const auto bytes = static_cast<char*>(CoTaskMemAlloc(itemSize + sizeof(USHORT)));
  if (!bytes) throw std::bad_alloc();
  const auto size = static_cast<USHORT>(itemSize);
  const USHORT end = 0;
  std::memcpy(bytes, &size, sizeof(size));
  std::memcpy(bytes + sizeof(size), mark, sizeof(mark));
  std::copy_n(reinterpret_cast<const char*>(fileName.data()), nameSize, bytes + headSize);
  std::memcpy(bytes + itemSize, &end, sizeof(end));
  return reinterpret_cast<LPITEMIDLIST>(bytes);
}

std::optional<std::wstring> fileNameOf(LPCITEMIDLIST item) {
  if (!item) return std::nullopt;
  const auto bytes = reinterpret_cast<const char*>(item);
  USHORT size = 0;
  std::memcpy(&size, bytes, sizeof(size));
  const bool own = size > headSize && (size - headSize) % sizeof(wchar_t) == 0 &&
                   std::memcmp(bytes + sizeof(size), mark, sizeof(mark)) == 0;
  if (!own) return std::nullopt;
  std::wstring name((size - headSize) / sizeof(wchar_t), L'\0');
  std::memcpy(name.data(), bytes + headSize, size - headSize);
  return name;
}

}  // namespace wb
