#include "tracking/DrawingStatus.h"

#include "vault/FileStatus.h"

namespace tessaro {

void fillDrawingStatus(AppContext& app, DrawingStatus& status, const CString& path) {
  long localVersion = 0, latestVersion = 0;
  bool checkedOut = false, checkedOutHere = false;
  FileStatus wanted;
  wanted.localVersion = &localVersion;
  wanted.latestVersion = &latestVersion;
  wanted.isCheckedOut = &checkedOut;
  wanted.isCheckedOutHere = &checkedOutHere;
  status.notInVault = !readFileStatus(app, path, wanted);
  if (status.notInVault) return;

  status.localVersion = localVersion;
  status.latestVersion = latestVersion;
  status.lockState = !checkedOut      ? CheckOutState::notCheckedOut
                     : checkedOutHere ? CheckOutState::checkedOutHere
                                      : CheckOutState::checkedOutElsewhere;
}

}  // namespace tessaro
