#pragma once

#include "foundation/AppContext.h"
#include "foundation/CString.h"

namespace tessaro {

enum class LockState { checkedOutHere = 0, checkedOutElsewhere = 1, notCheckedOut = 2 };

/// What the vault knows of one drawing. "Here" is this computer and the folder of the drawing.
struct DrawingStatus {
  bool notInVault = false;  ///< in no vault that can be reached; the rest keeps what it held
  LockState lockState = LockState::notCheckedOut;
  int localVersion = -1;   ///< version of the local copy, below 1 for none
  int latestVersion = -1;  ///< latest version in the vault
};

/// Asks the vault for the status of `path`: one login and one lookup.
void fillDrawingStatus(AppContext& app, DrawingStatus& status, const CString& path);

}  // namespace tessaro
