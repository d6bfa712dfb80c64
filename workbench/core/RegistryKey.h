#pragma once

#include <windows.h>

#include <string>

namespace wb {

/// An open key of the registry.
class RegistryKey {
 public:
  /// Opens the key, or makes it.
  RegistryKey(HKEY root, const std::wstring& path, REGSAM access, bool create = false)
      : status_(open(root, path, access, create)) {}
  RegistryKey(const RegistryKey&) = delete;
  RegistryKey& operator=(const RegistryKey&) = delete;
  ~RegistryKey() {
    if (key) RegCloseKey(key);
  }

  /// Windows' result of the opening.
  LSTATUS status() const { return status_; }
  /// Null if it isn't open.
  HKEY get() const { return key; }

 private:
  LSTATUS open(HKEY root, const std::wstring& path, REGSAM access, bool create) {
    if (!create) return RegOpenKeyExW(root, path.c_str(), 0, access, &key);
    return RegCreateKeyExW(root, path.c_str(), 0, nullptr, 0, access, nullptr, &key, nullptr);
  }

  HKEY key = nullptr;
  LSTATUS status_;  // behind the key, which the opening sets
};

}  // namespace wb
