#pragma once

#include "foundation/AppContext.h"
#include "foundation/CString.h"
#include "vault/CheckOutState.h"

namespace tessaro {

/// A drawing's status in the vault. Here is this computer and the drawing's folder.
struct DrawingStatus {
  bool notInVault = false;  ///< in no reachable vault; the other fields have their previous values
  CheckOutState lockState = CheckOutState::notCheckedOut;  ///< never `notInVault`
  int localVersion = -1;                                   ///< of the local copy, below 1 for none
  int latestVersion = -1;                                  ///< of the vault
};

/// Reads the status of a path's file: one login and one lookup. A failure of the client is reported
/// in a box and counts as not in the vault.
void fillDrawingStatus(AppContext& app, DrawingStatus& status, const CString& path);

}  // namespace tessaro
