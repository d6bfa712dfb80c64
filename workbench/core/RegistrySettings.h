#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace wb {

/// A key of the registry that is open for reading.
class RegistryKey {
 public:
  RegistryKey(HKEY root, const std::wstring& path) {
    RegOpenKeyExW(root, path.c_str(), 0, KEY_READ, &key);
  }
  RegistryKey(const RegistryKey&) = delete;
  RegistryKey& operator=(const RegistryKey&) = delete;
  ~RegistryKey() {
    if (key) RegCloseKey(key);
  }

  /// Null if there is no such key.
  HKEY get() const { return key; }

 private:
  HKEY key = nullptr;
};

/// A value of the registry as a script names it: bare for the add-in's own key, else a full path
/// that begins with HKCU\ or HKLM\ and ends in the value's name, "(default)" for the unnamed one.
struct SettingName {
  HKEY root;
  std::wstring key;
  std::wstring value;
};

SettingName settingName(const std::wstring& text);

/// Sets a value, making its key if need be.
/// @return the Windows error, 0 for none
LSTATUS writeSetting(const SettingName& name, DWORD type, const void* data, DWORD size);
LSTATUS deleteSetting(const SettingName& name);

/// The values of the add-in's key as "name=data" in the order of their names.
std::vector<std::wstring> addinSettings();

/// Text of a value's data for the transcript: a number, a quoted text, or type and size.
std::wstring registryDataText(DWORD type, const BYTE* data, DWORD size);

/// Deletes all that the add-in and the client keep in the registry, and leaves what a fresh
/// installation of the client has: its empty keys.
/// @throws std::runtime_error
void resetSettings();

}  // namespace wb
