#include <dbapserv.h>

#include "core/StandInTime.h"
#include "database/Drawing.h"
#include "editor/FileSelection.h"
#include "gate/HostCall.h"
#include "notserved/Classes.h"

using ErrorStatus = Acad::ErrorStatus;
using Services = AcDbHostApplicationServices;
using namespace wb;

namespace {

AcDbHostApplicationServices& services() {
  static NotServedAcDbHostApplicationServices one;
  return one;
}

class LayoutManager : public NotServedAcDbLayoutManager {
 public:
  const ACHAR* findActiveLayout(bool allowModel) override {
    return HostCall(L"AcDbLayoutManager.findActiveLayout").run<const ACHAR*>(nullptr, [&] {
      const AcDbDatabase* working = acdbHostApplicationServices()->workingDatabase();
      const Drawing* drawing = Drawing::of(working);
      std::wstring& found = databaseState().activeLayout;
      if (drawing) found = allowModel ? drawing->currentLayout() : drawing->currentSheet();
      return drawing ? found.c_str() : nullptr;
    });
  }
};

}  // namespace

// The interface asks for data of the library's own; the working database in it is reset with
// the session's last document.
AcDbHostApplicationServices* s_pServices = &services();

Services::AcDbHostApplicationServices()
    : mp_sessionVars(nullptr),
      mpWorkingDatabase(nullptr),
      mpDefaultUndoController(nullptr),
      mpWorkingTransactionManager(nullptr),
      mpWorkingGlobals(nullptr),
      mpWorkingAppSysvars(nullptr),
      m_eSystemCodePage(),
      mbDisplayMessages(Adesk::kTrue),
      mpPasswordCache(nullptr) {}

Services::~AcDbHostApplicationServices() = default;

void Services::setWorkingDatabase(AcDbDatabase* pDatabase) {
  HostCall(THIS_FUNCTION).run([&] { mpWorkingDatabase = pDatabase; });
}

AcDbLayoutManager* Services::layoutManager() const {
  static LayoutManager manager;
  const HostCall call(THIS_FUNCTION);
  return &manager;
}

ErrorStatus Services::selectFile(short* userCancel, ACHAR*& chosenPath, void* hwnd,
                                 const int nFlags, const ACHAR* prompt, const ACHAR* dir,
                                 const ACHAR* name, const ACHAR* type, int* pnChoice,
                                 bool* pbReadOnly, const ACHAR* pszWSTags, void* pReserved) {
  const HostCall call(THIS_FUNCTION);
  if (call.refused()) return Acad::eOutOfMemory;
  FileSelection& selection = FileSelection::instance();
  for (const auto& callback : selection.callbacks.handles()) {
    const InModule outside;
    const ErrorStatus status =
        callback.proc(userCancel, chosenPath, hwnd, nFlags, prompt, dir, name, type, pnChoice,
                      pbReadOnly, pszWSTags, pReserved);
    if (status != Acad::eNotHandled) return status;
  }
  return call.run(Acad::eOutOfMemory,
                  [&] { return selection.pick(userCancel, chosenPath, nFlags); });
}

ErrorStatus Services::registerSelectFileCallback(const ACHAR* appName, SELECTFILEPROC proc,
                                                 bool unRegister, bool asPrimary) {
  return HostCall(THIS_FUNCTION).run(Acad::eInvalidInput, [&] {
    if (!appName || !proc) return Acad::eInvalidInput;
    auto& callbacks = FileSelection::instance().callbacks;
    const FileSelection::Callback callback{appName, proc};
    if (unRegister) return callbacks.closed(callback) ? Acad::eOk : Acad::eKeyNotFound;
    if (callbacks.holds(callback)) return Acad::eDuplicateKey;
    callbacks.opened(callback, appName, true, asPrimary);
    return Acad::eOk;
  });
}
