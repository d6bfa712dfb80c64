#pragma once

#include "foundation/Registry.h"

namespace tessaro {

/// Opens the suite's registry keys. Made on the stack for one query.
class SettingsLight {
 public:
  /// Flags of the open operations: the access, and one order of search.
  enum Flags : unsigned {
    machineOnly = 0x01,
    userOnly = 0x02,
    machineFirst = 0x04,
    userFirst = 0x08,
    readAccess = 0x100,
    writeAccess = 0x200,
    /// The 32-bit view of the registry; ignored for vault keys.
    view32Bit = 0x400
  };

  /// The suite's standard keys. Databases is below the machine's root, the next three are below the
  /// user's.
  enum StandardKey {
    databases = 0,
    vaults = 1,
    nameSpace = 2,
    viewSetup = 3,
    userPolicy = 4,
    machinePolicy = 5
  };

  SettingsLight() = default;
  SettingsLight(const SettingsLight&) = delete;
  SettingsLight& operator=(const SettingsLight&) = delete;
  virtual ~SettingsLight() = default;

  /// Opens a standard key.
  /// @param kind a `StandardKey`; any other number fails
  /// @param create create the key if it doesn't exist
  /// @param flags the access and the view
  /// @return whether the key was opened
  bool openStandardKey(int kind, Registry& opened, bool create, unsigned flags);

  /// Opens the key of a vault in the first tree of the search order that has it.
  /// @param vaultName may contain backslashes, for a deeper key; null or empty fails
  /// @param valueName a value that the key must have, null for none
  /// @param create create the key if it doesn't exist
  /// @return whether the key was opened
  bool openVaultKey(const wchar_t* vaultName, Registry& opened, const wchar_t* valueName,
                    bool create, unsigned flags);

 private:
  bool openMachineRoot();
  bool openUserRoot();

  // Opened at their first use, closed with the object.
  Registry userRoot;
  Registry machineRoot;
};

}  // namespace tessaro
