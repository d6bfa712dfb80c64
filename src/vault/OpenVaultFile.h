#pragma once

#include "foundation/AppContext.h"
#include "foundation/CString.h"
#include "vault/VaultInterfaces.h"

namespace tessaro {

// Nothing is cached between two calls: each creates the client's main object, logs in and looks the
// file up. A main object that can't be created is always reported in a box.

/// A file in its vault.
struct OpenedVaultFile {
  /// Logged in to the vault.
  VaultClientPtr client;
  /// The folder through which the file was found.
  VaultFolderPtr folder;
  VaultFilePtr file;
};

/// A file in its vault, in the client's older generation.
struct OpenedVaultFileLegacy {
  VaultClientLegacyPtr client;
  VaultFolderLegacyPtr folder;
  VaultFileLegacyPtr file;
};

/// Opens the file of a path. Not found in silence: a path outside the vaults, a vault that is
/// offline, a failed login, a file that doesn't exist or isn't permitted.
/// @param opened complete if the file was found; otherwise it may hold a client
/// @param raiseUnexpected whether other failures are thrown; otherwise they count as not found
/// @return whether the file was found
/// @throws _com_error if `raiseUnexpected` is set
bool openVaultFile(AppContext& app, const CString& path, OpenedVaultFile& opened,
                   bool raiseUnexpected);

/// The same in the client's older generation.
/// @throws _com_error for a failed login, and if `raiseUnexpected` is set
bool openVaultFileLegacy(AppContext& app, const CString& path, OpenedVaultFileLegacy& opened,
                         bool raiseUnexpected);

}  // namespace tessaro
