#pragma once

#include "foundation/CString.h"

namespace tessaro {

/// The check-in that waits for its drawing to be closed. There is one for the module, not one for
/// each document.
struct PendingCheckIn {
  /// Whether a check-in is waiting.
  bool checkInPending = false;
  /// The drawing's full path. Valid while `checkInPending` is set.
  CString checkInPath;
};

}  // namespace tessaro
