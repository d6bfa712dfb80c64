#pragma once

#include <vector>

#include "foundation/AppContext.h"
#include "foundation/CString.h"

namespace tessaro {

/// Whether a file is checked out. Here is this computer, this folder and this user.
enum class CheckOutState {
  /// Outside the vaults, in a vault that is offline, or not found.
  notInVault = 0,
  checkedOutHere = 1,
  checkedOutElsewhere = 2,
  notCheckedOut = 3
};

/// One version of a file.
struct VersionEntry {
  long version;
  CString comment;
};

/// Reads the state of a path's file.
/// @param versions the file's versions are appended in the client's order; null if not wanted
/// @throws _com_error if the client fails
CheckOutState readCheckOutState(AppContext& app, const CString& path,
                                std::vector<VersionEntry>* versions);

/// The same for a window or menu, which no exception may leave. A failure is reported in a box;
/// versions that were read before it are kept.
/// @return notInVault after a failure
CheckOutState readCheckOutStateOrReport(AppContext& app, const CString& path,
                                        std::vector<VersionEntry>* versions);

}  // namespace tessaro
