#include "vault/VaultOffline.h"

#include "foundation/SettingsLight.h"

namespace tessaro {

bool isVaultOffline(const wchar_t* vaultName) {
  const wchar_t offline[] = L"Offline";
  SettingsLight settings;
  Registry vault;
  if (!settings.openVaultKey(
          vaultName, vault, offline, false,
          SettingsLight::userOnly | SettingsLight::readAccess | SettingsLight::writeAccess)) {
    return false;
  }
  // Zero is the same in either byte order.
  DWORD value = 0;
  DWORD type = REG_NONE;
  DWORD size = sizeof(value);
  const LONG result = vault.query(offline, &type, &value, &size);
  const bool isNumber = type == REG_DWORD || type == REG_DWORD_BIG_ENDIAN;
  return result == ERROR_SUCCESS && isNumber && size == sizeof(value) && value != 0;
}

}  // namespace tessaro
