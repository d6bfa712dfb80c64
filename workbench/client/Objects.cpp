#include "client/Objects.h"

#include <oleauto.h>

#include <cwctype>

#include "client/ClientCall.h"

namespace wb {
namespace {

/// A cursor over a list of known length.
struct Cursor {
  const void* list = nullptr;  ///< the one that it was made for
  size_t count = 0;
  size_t index = 0;
};

struct PositionPart : Dual<VaultPosition, Cursor> {
  STDMETHODIMP isNull(LONG* result) override {
    return call().result(result, [&] { return state.index >= state.count ? 1 : 0; });
  }
};

FILETIME fileTimeOf(std::uint64_t value) {
  return {static_cast<DWORD>(value), static_cast<DWORD>(value >> 32)};
}

}  // namespace

long idOfName(const std::wstring& name) {
  std::uint32_t hash = 2166136261u;  // FNV-1a
  for (const wchar_t letter : name) {
    hash = (hash ^ static_cast<std::uint32_t>(std::towlower(letter))) * 16777619u;
  }
  return static_cast<long>(hash & 0x7FFFFFFFu);
}

STDMETHODIMP NamedPart::id(LONG* result) {
  return call().result(result, [&] { return state.id; });
}

STDMETHODIMP NamedPart::name(BSTR* result) {
  return call().result(result, [&] { return state.name; });
}

Owned<VaultObject> namedObject(const std::wstring& kind, const VaultItem& item) {
  return make<VaultObject, NamedPart>(namedLabel(kind, item.name), item);
}

Owned<VaultObject> namedObject(const std::wstring& kind, const std::wstring& name) {
  return namedObject(kind, VaultItem{idOfName(name), name, {}});
}

Owned<VaultPosition> firstPosition(const void* list, size_t count) {
  return make<VaultPosition, PositionPart>(L"VaultPosition", Cursor{list, count});
}

size_t advance(VaultPosition* position, const void* list) {
  const auto part = dynamic_cast<PositionPart*>(position);
  if (!part || part->state.list != list) throw ClientFailure(E_INVALIDARG);
  Cursor& cursor = part->state;
  if (cursor.index >= cursor.count) throw ClientFailure(E_QVT_END_OF_LIST);
  return cursor.index++;
}

const StoredFile& storedFile(const std::wstring& path) {
  const StoredFile* found = store().find(path);
  if (!found) throw ClientFailure(E_QVT_FILE_NOT_FOUND);
  return *found;
}

DATE utcDate(std::uint64_t fileTime) {
  const FILETIME time = fileTimeOf(fileTime);
  SYSTEMTIME parts = {};
  DATE date = 0;
  if (!FileTimeToSystemTime(&time, &parts) || !SystemTimeToVariantTime(&parts, &date)) {
    throw ClientFailure(E_INVALIDARG);
  }
  return date;
}

DATE localDate(std::uint64_t fileTime) {
  const FILETIME utc = fileTimeOf(fileTime);
  FILETIME local = {};
  if (!FileTimeToLocalFileTime(&utc, &local)) throw ClientFailure(E_INVALIDARG);
  return utcDate(whole(local));
}

}  // namespace wb
