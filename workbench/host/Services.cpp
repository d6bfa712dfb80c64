#include <dbapserv.h>

#include "core/StandInTime.h"
#include "host/FileSelection.h"

namespace {

AcDbHostApplicationServices& services() {
  static AcDbHostApplicationServices one;
  return one;
}

}  // namespace

AcDbHostApplicationServices* s_pServices = &services();

AcDbHostApplicationServices* acdbHostApplicationServices() { return &services(); }

AcDbDatabase* AcDbHostApplicationServices::workingDatabase() const { return working; }

void AcDbHostApplicationServices::setWorkingDatabase(AcDbDatabase* pDatabase) {
  const wb::InStandIn inside;
  working = pDatabase;
}

Acad::ErrorStatus AcDbHostApplicationServices::selectFile(short* userCancel, ACHAR*& chosenPath,
                                                          void* hwnd, const int nFlags,
                                                          const ACHAR* prompt, const ACHAR* dir,
                                                          const ACHAR* name, const ACHAR* type,
                                                          int* pnChoice, bool* pbReadOnly,
                                                          const ACHAR* pszWSTags, void* pReserved) {
  wb::FileSelection& selection = wb::FileSelection::instance();
  for (SELECTFILEPROC proc : selection.callbacks()) {
    const Acad::ErrorStatus status = proc(userCancel, chosenPath, hwnd, nFlags, prompt, dir, name,
                                          type, pnChoice, pbReadOnly, pszWSTags, pReserved);
    if (status != Acad::eNotHandled) return status;
  }
  return selection.pick(userCancel, chosenPath, nFlags);
}

bool AcDbHostApplicationServices::registerSelectFileCallback(const ACHAR* appName,
                                                             SELECTFILEPROC proc, bool unRegister,
                                                             bool asPrimary) {
  if (!appName || !proc) return false;
  wb::FileSelection& selection = wb::FileSelection::instance();
  return unRegister ? selection.removeCallback(appName, proc)
                    : selection.addCallback(appName, proc, asPrimary);
}
