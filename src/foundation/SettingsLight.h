#pragma once

#include "foundation/Registry.h"

namespace tessaro {

/// Finds the keys of the suite. Made on the stack for one question.
class SettingsLight {
 public:
  /// Flags of the openings: the access, and one order of search.
  enum Flags : unsigned {
    machineOnly = 0x01,
    userOnly = 0x02,
    machineFirst = 0x04,
    userFirst = 0x08,
    readAccess = 0x100,
    writeAccess = 0x200,
    /// The 32-bit view of the registry. Vault keys have none of their own.
    view32Bit = 0x400
  };

  /// The suite's standard keys: Databases is the machine's, the next three are the user's.
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
  /// @param kind a `StandardKey`; with any other number nothing is opened
  /// @param create make the key if it isn't there
  /// @param flags the access and the view; the order of search says nothing here
  bool openStandardKey(int kind, Registry& opened, bool create, unsigned flags);

  /// Opens the key of a vault in the machine's or the user's tree, whichever comes first in the
  /// order of search.
  /// @param vaultName a backslash in it leads to a deeper key; null or empty opens nothing
  /// @param valueName a value that the key has to hold, null for none
  /// @param create make the key if it isn't there
  bool openVaultKey(const wchar_t* vaultName, Registry& opened, const wchar_t* valueName,
                    bool create, unsigned flags);

 private:
  bool openMachineRoot();
  bool openUserRoot();

  // The roots stay open from their first use on.
  Registry userRoot;
  Registry machineRoot;
};

}  // namespace tessaro
