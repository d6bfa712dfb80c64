#include "BareVault.h"

#include <acedads.h>

#include "foundation/Registry.h"

namespace bare {

namespace {

/// Looks for the value `Offline` of the vault.
bool isOffline(const wchar_t* vaultName) {
  HKEY machine = nullptr, user = nullptr, vaults = nullptr, vault = nullptr;
  RegOpenKeyExW(HKEY_LOCAL_MACHINE, tessaro::suiteKey, 0, KEY_READ, &machine);
  RegCreateKeyExW(HKEY_CURRENT_USER, tessaro::suiteKey, 0, nullptr, 0, KEY_READ | KEY_WRITE,
                  nullptr, &user, nullptr);
  RegOpenKeyExW(user, L"Vaults", 0, KEY_READ | KEY_WRITE, &vaults);
  RegOpenKeyExW(vaults, vaultName, 0, KEY_READ | KEY_WRITE, &vault);
  DWORD value = 0, type = 0, size = sizeof(value);
  const bool isThere =
      RegQueryValueExW(vault, L"Offline", nullptr, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
  if (isThere) {
    RegQueryValueExW(vault, L"Offline", nullptr, &type, reinterpret_cast<BYTE*>(&value), &size);
  }
  for (const HKEY key : {vaults, vault, machine, user}) RegCloseKey(key);
  return value != 0;
}

}  // namespace

long parentWindow() { return static_cast<long>(reinterpret_cast<LONG_PTR>(adsw_acadMainWnd())); }

VaultEntry::VaultEntry(const wchar_t* path) {
  need(client.CreateInstance(__uuidof(VaultMain), nullptr, CLSCTX_ALL));
  const _bstr_t name(path);
  _bstr_t vault;
  need(client->vaultNameFromPath(name, vault.GetAddress()));
  if (isOffline(vault)) _com_issue_error(E_ABORT);
  need(client->login(vault, parentWindow()));
  need(client->fileFromPath(name, &folder, &file));
}

long VaultEntry::folderId() const {
  const tessaro::VaultObjectPtr object = folder;
  long id = 0;
  need(object->id(&id));
  return id;
}

bool VaultEntry::isCheckedOut() const {
  VARIANT_BOOL checkedOut = VARIANT_FALSE;
  need(file->isCheckedOut(&checkedOut));
  return checkedOut != VARIANT_FALSE;
}

bool VaultEntry::isHeldHere() const {
  if (!isCheckedOut()) return false;
  _bstr_t computer;
  need(file->checkedOutOnComputer(computer.GetAddress()));
  wchar_t name[MAX_COMPUTERNAME_LENGTH + 1];
  DWORD size = MAX_COMPUTERNAME_LENGTH + 1;
  if (!GetComputerNameW(name, &size) || lstrcmpiW(computer, name) != 0) return false;
  long id = 0;
  need(file->checkedOutInFolderId(&id));
  return id == folderId();
}

long VaultEntry::localVersion() const {
  long version = 0;
  need(file->localVersion(_variant_t(folderId()), &version));
  return version;
}

long VaultEntry::latestVersion() const {
  long version = 0;
  need(file->latestVersion(&version));
  return version;
}

void VaultEntry::checkOut() const { need(file->checkOut(folderId(), parentWindow(), 0)); }

}  // namespace bare
