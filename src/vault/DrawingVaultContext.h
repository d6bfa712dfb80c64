#pragma once

#include "foundation/AppContext.h"
#include "foundation/CString.h"
#include "vault/OpenVaultFile.h"

class AcDbDatabase;

namespace tessaro {

/// The current drawing and its file in the vault.
struct DrawingVaultContext : OpenedVaultFileLegacy {
  /// Owned by the host.
  AcDbDatabase* database = nullptr;
  CString path;
};

/// Opens the current drawing's file for a command that needs an open drawing, saved in a vault, and
/// a client of a certain version. A failure is reported in a box, except for a vault that is
/// offline.
/// @param requiredMajor the oldest major version of the client, 0 for any version
/// @param requiredMinor the oldest minor version with that major version
/// @return S_OK or the failure
HRESULT OpenVaultContext(AppContext& app, DrawingVaultContext& context, long requiredMajor,
                         long requiredMinor);

}  // namespace tessaro
