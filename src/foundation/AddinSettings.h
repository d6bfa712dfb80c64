#pragma once

#include <windows.h>

#include "foundation/Registry.h"

namespace tessaro {

/// The key of the add-in's settings, below HKEY_CURRENT_USER.
inline constexpr wchar_t addinSettingsKey[] =
    L"Software\\Halvern\\Applications\\Quillstone Suite\\TessaroACAD";

/// A setting of the add-in: a value of 32 bits, written as REG_DWORD.
struct AddinSetting {
  const wchar_t* name;
  DWORD defaultValue;
};

namespace addinSettings {

/// Not 0: ask to check out a drawing that is opened and isn't checked out.
inline constexpr AddinSetting autolock = {L"Autolock", 0};
/// Not 0: warn at the first change of a drawing that isn't checked out.
inline constexpr AddinSetting editWarning = {L"EditWarning", 1};
/// Not 0: show the status window.
inline constexpr AddinSetting statusWindow = {L"StatusWnd", 1};
/// Minutes between two checks of the xrefs; 0 turns the monitor off.
inline constexpr AddinSetting xrefMonitoringInterval = {L"XrefMonitoringInterval", 5};
/// The status window's left and top edge in screen pixels. They are used as a pair; without both
/// the window has the position of its template.
inline constexpr AddinSetting windowLeft = {L"WndPosX", 0};
inline constexpr AddinSetting windowTop = {L"WndPosY", 0};

}  // namespace addinSettings

/// Opens the key of the settings for reading and writing and creates it if it doesn't exist.
/// @return whether the key was opened
bool openAddinSettings(Registry& key);

/// Reads a setting from its open key. A value is usable if it has exactly four bytes; its type
/// isn't checked.
/// @param data unchanged on failure
/// @return whether there is a usable value
bool readAddinSetting(Registry& key, const AddinSetting& setting, DWORD& data);

/// The same; opens the key for reading.
bool readAddinSetting(const AddinSetting& setting, DWORD& data);

/// Reads a setting from its open key.
/// @return its value, or its default if there is no usable value
DWORD addinSettingOrDefault(Registry& key, const AddinSetting& setting);

/// The same; opens the key for reading.
DWORD addinSettingOrDefault(const AddinSetting& setting);

/// Writes a setting; creates the key if it doesn't exist.
/// @return whether the setting was written
bool writeAddinSetting(const AddinSetting& setting, DWORD data);

}  // namespace tessaro
