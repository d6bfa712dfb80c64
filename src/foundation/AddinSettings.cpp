#include "foundation/AddinSettings.h"

namespace tessaro {

bool openAddinSettings(Registry& key) {
  return key.open(HKEY_CURRENT_USER, addinSettingsKey, KEY_READ | KEY_WRITE, true);
}

bool readAddinSetting(Registry& key, const AddinSetting& setting, DWORD& data) {
  DWORD value = 0;
  DWORD size = sizeof(value);
  // Windows fails for a longer value, but succeeds for a shorter one.
  if (key.query(setting.name, nullptr, &value, &size) != ERROR_SUCCESS || size != sizeof(value)) {
    return false;
  }
  data = value;
  return true;
}

bool readAddinSetting(const AddinSetting& setting, DWORD& data) {
  Registry key;
  return key.open(HKEY_CURRENT_USER, addinSettingsKey, KEY_READ) &&
         readAddinSetting(key, setting, data);
}

DWORD addinSettingOrDefault(Registry& key, const AddinSetting& setting) {
  DWORD value = setting.defaultValue;
  readAddinSetting(key, setting, value);
  return value;
}

DWORD addinSettingOrDefault(const AddinSetting& setting) {
  DWORD value = setting.defaultValue;
  readAddinSetting(setting, value);
  return value;
}

bool writeAddinSetting(const AddinSetting& setting, DWORD data) {
  Registry key;
  return key.open(HKEY_CURRENT_USER, addinSettingsKey, KEY_WRITE, true) &&
         key.set(setting.name, REG_DWORD, &data, sizeof(data)) == ERROR_SUCCESS;
}

}  // namespace tessaro
