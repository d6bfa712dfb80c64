#pragma once

#include <windows.h>

#include <string>
#include <vector>

namespace wb {

/// A value of the registry as a script names it: bare for the add-in's own key, else a full path
/// that begins with HKCU\ or HKLM\ and ends in the value's name, "(default)" for the unnamed one.
struct SettingName {
  HKEY root;
  std::wstring key;
  std::wstring value;
};

SettingName settingName(const std::wstring& text);

/// Sets a value, making its key if need be. Gives the Windows error, 0 for none.
LSTATUS writeSetting(const SettingName& name, DWORD type, const void* data, DWORD size);
LSTATUS deleteSetting(const SettingName& name);

/// The values of the add-in's key as "name=data" in the order of their names.
std::vector<std::wstring> addinSettings();

/// Text of a value's data for the transcript: a number, a quoted text, or type and size.
std::wstring registryDataText(DWORD type, const BYTE* data, DWORD size);

/// Deletes all that the add-in and the client keep in the registry, and leaves what a fresh
/// installation of the client has: its empty keys. Raises std::runtime_error.
void resetSettings();

}  // namespace wb
