#include "foundation/Registry.h"

#include <cstring>
#include <vector>

namespace tessaro {

namespace {

/// A value as it is stored.
struct RawValue {
  DWORD type = REG_NONE;
  std::vector<BYTE> bytes;
};

bool readRaw(Registry& registry, const wchar_t* name, RawValue& value) {
  LONG result = ERROR_MORE_DATA;
  // The value may grow between the two queries.
  while (result == ERROR_MORE_DATA) {
    DWORD size = 0;
    if (registry.query(name, nullptr, nullptr, &size) != ERROR_SUCCESS) return false;
    // At least one byte: with a null buffer the second query would return the size again.
    value.bytes.resize(size + 1);
    result = registry.query(name, &value.type, value.bytes.data(), &size);
    value.bytes.resize(size);
  }
  return result == ERROR_SUCCESS;
}

/// @return the text up to its first null, if it has one
CString textIn(const std::vector<BYTE>& bytes) {
  CString text(bytes.size() / sizeof(wchar_t), L'\0');
  std::memcpy(text.data(), bytes.data(), text.size() * sizeof(wchar_t));
  return text.c_str();
}

bool expandVariables(CString& text) {
  const DWORD size = ExpandEnvironmentStringsW(text.c_str(), nullptr, 0);
  CString expanded(size, L'\0');
  const DWORD written = ExpandEnvironmentStringsW(text.c_str(), expanded.data(), size);
  if (written == 0 || written > size) return false;
  text = expanded.c_str();
  return true;
}

}  // namespace

Registry::~Registry() { close(); }

bool Registry::open(HKEY parent, const wchar_t* subKey, REGSAM access, bool create) {
  close();
  wchar_t noClass[] = L"";
  if (create && subKey != nullptr && *subKey != 0) {
    lastResult_ = RegCreateKeyExW(parent, subKey, 0, noClass, REG_OPTION_NON_VOLATILE, access,
                                  nullptr, &key_, nullptr);
  } else {
    lastResult_ = RegOpenKeyExW(parent, subKey, 0, access, &key_);
  }
  if (lastResult_ != ERROR_SUCCESS) key_ = nullptr;
  return lastResult_ == ERROR_SUCCESS;
}

void Registry::close() {
  if (key_ != nullptr) {
    lastResult_ = RegCloseKey(key_);
    key_ = nullptr;
  }
}

LONG Registry::query(const wchar_t* name, DWORD* type, void* data, DWORD* size) {
  lastResult_ = RegQueryValueExW(key_, name, nullptr, type, static_cast<BYTE*>(data), size);
  return lastResult_;
}

LONG Registry::set(const wchar_t* name, DWORD type, const void* data, DWORD size) {
  lastResult_ = RegSetValueExW(key_, name, 0, type, static_cast<const BYTE*>(data), size);
  return lastResult_;
}

bool readRegistryString(Registry& registry, const wchar_t* name, CString& text) {
  RawValue value;
  if (!readRaw(registry, name, value) || (value.type != REG_SZ && value.type != REG_EXPAND_SZ)) {
    return false;
  }
  CString read = textIn(value.bytes);
  if (value.type == REG_EXPAND_SZ && !read.empty() && !expandVariables(read)) return false;
  text = read;
  return true;
}

}  // namespace tessaro
