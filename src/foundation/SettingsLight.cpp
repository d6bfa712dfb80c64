#include "foundation/SettingsLight.h"

#include <vector>

namespace tessaro {

namespace {

REGSAM accessOf(unsigned flags) {
  REGSAM access = 0;
  if ((flags & SettingsLight::readAccess) != 0) access |= KEY_READ;
  if ((flags & SettingsLight::writeAccess) != 0) access |= KEY_WRITE;
  return access;
}

bool holdsValue(Registry& registry, const wchar_t* name) {
  return registry.query(name, nullptr, nullptr, nullptr) == ERROR_SUCCESS;
}

/// @return the trees to search, in the order of the flags
std::vector<const Registry*> inOrder(const Registry& machine, const Registry& user,
                                     unsigned flags) {
  if ((flags & SettingsLight::machineOnly) != 0) return {&machine};
  if ((flags & SettingsLight::userOnly) != 0) return {&user};
  if ((flags & SettingsLight::machineFirst) != 0) return {&machine, &user};
  if ((flags & SettingsLight::userFirst) != 0) return {&user, &machine};
  return {};
}

}  // namespace

bool SettingsLight::openMachineRoot() {
  return machineRoot.key() != nullptr || machineRoot.open(HKEY_LOCAL_MACHINE, suiteKey, KEY_READ);
}

bool SettingsLight::openUserRoot() {
  return userRoot.key() != nullptr ||
         userRoot.open(HKEY_CURRENT_USER, suiteKey, KEY_READ | KEY_WRITE, true);
}

bool SettingsLight::openStandardKey(int kind, Registry& opened, bool create, unsigned flags) {
  const REGSAM access = accessOf(flags) | ((flags & view32Bit) != 0 ? KEY_WOW64_32KEY : 0);
  switch (kind) {
    case databases:
      return openMachineRoot() && opened.open(machineRoot.key(), L"Databases", access, create);
    case vaults:
      return openUserRoot() && opened.open(userRoot.key(), L"Vaults", access, create);
    case nameSpace:
      return openUserRoot() && opened.open(userRoot.key(), L"Namespace", access, create);
    case viewSetup:
      return openUserRoot() && opened.open(userRoot.key(), L"ViewSetup", access, create);
    case userPolicy:
      return opened.open(HKEY_CURRENT_USER, policyKey, access, create);
    case machinePolicy:
      return opened.open(HKEY_LOCAL_MACHINE, policyKey, access, create);
    default:
      return false;
  }
}

bool SettingsLight::openVaultKey(const wchar_t* vaultName, Registry& opened,
                                 const wchar_t* valueName, bool create, unsigned flags) {
  if (vaultName == nullptr || *vaultName == 0) return false;
  const unsigned plainFlags = flags & ~static_cast<unsigned>(view32Bit);
  Registry machineTree;
  if ((flags & userOnly) == 0) openStandardKey(databases, machineTree, create, plainFlags);
  Registry userTree;
  if ((flags & machineOnly) == 0) {
    // Both roots are required even for the user's tree alone: without the machine's key the suite
    // isn't installed, and the user's key is a remnant.
    const bool machine = openMachineRoot();
    const bool user = openUserRoot();
    if (!machine || !user) return false;
    openStandardKey(vaults, userTree, create, plainFlags);
  }
  for (const Registry* tree : inOrder(machineTree, userTree, flags)) {
    if (tree->key() == nullptr || !opened.open(tree->key(), vaultName, accessOf(flags), create)) {
      continue;
    }
    if (valueName == nullptr || holdsValue(opened, valueName)) return true;
    opened.close();
  }
  return false;
}

}  // namespace tessaro
