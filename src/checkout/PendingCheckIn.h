#pragma once

#include "foundation/CString.h"

namespace tessaro {

/// The note by which the check-in command tells the later end of its drawing to go on. There is one
/// for the module, not one for each document.
struct PendingCheckIn {
  /// A check-in waits for its document to be gone.
  bool checkInPending = false;
  /// The drawing's full path. Read only while `checkInPending` is set, and not cleared with it.
  CString checkInPath;
};

}  // namespace tessaro
