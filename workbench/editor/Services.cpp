#include <dbapserv.h>

#include "core/StandInTime.h"
#include "editor/FileSelection.h"
#include "notserved/NotServed.h"

namespace {

class Services : public AcDbHostApplicationServices {
 public:
  Acad::ErrorStatus findFile(ACHAR*, int, const ACHAR*, AcDbDatabase*, FindFileHint) override {
    return wb::NotServed(L"AcDbHostApplicationServices::findFile");
  }
};

AcDbHostApplicationServices& services() {
  static Services one;
  return one;
}

}  // namespace

AcDbHostApplicationServices* s_pServices = &services();

AcDbHostApplicationServices::AcDbHostApplicationServices()
    : mp_sessionVars(nullptr),
      mpWorkingDatabase(nullptr),
      mpDefaultUndoController(nullptr),
      mpWorkingTransactionManager(nullptr),
      mpWorkingGlobals(nullptr),
      mpWorkingAppSysvars(nullptr),
      m_eSystemCodePage(),
      mbDisplayMessages(Adesk::kTrue),
      mpPasswordCache(nullptr) {}

AcDbHostApplicationServices::~AcDbHostApplicationServices() = default;

void AcDbHostApplicationServices::setWorkingDatabase(AcDbDatabase* pDatabase) {
  const wb::InStandIn inside;
  mpWorkingDatabase = pDatabase;
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

Acad::ErrorStatus AcDbHostApplicationServices::registerSelectFileCallback(const ACHAR* appName,
                                                                          SELECTFILEPROC proc,
                                                                          bool unRegister,
                                                                          bool asPrimary) {
  if (!appName || !proc) return Acad::eInvalidInput;
  wb::FileSelection& selection = wb::FileSelection::instance();
  if (unRegister) return selection.removeCallback(appName, proc) ? Acad::eOk : Acad::eKeyNotFound;
  return selection.addCallback(appName, proc, asPrimary) ? Acad::eOk : Acad::eDuplicateKey;
}
