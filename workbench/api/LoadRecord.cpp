#include "editor/LoadRecord.h"

#include <appinfo.h>
#include <rxregsvc.h>

#include "core/Transcript.h"
#include "gate/HostCall.h"

using wb::HostCall;

namespace {

AcadApp::ErrorStatus statusOf(LSTATUS error) {
  switch (error) {
    case ERROR_SUCCESS:
      return AcadApp::eOk;
    case ERROR_INVALID_NAME:
      return AcadApp::eInvalidKey;
    case ERROR_INVALID_DATA:
      return AcadApp::eInvalidValue;
    case ERROR_FILE_NOT_FOUND:
      return AcadApp::eKeyNotFound;
    case ERROR_ACCESS_DENIED:
      return AcadApp::eRegAccessDenied;
    default:
      return AcadApp::eUnknownError;
  }
}

}  // namespace

class AcadAppInfoImp {
 public:
  wb::LoadRecord record;
};

AcadAppInfo::AcadAppInfo() : mpImp(new AcadAppInfoImp) { const HostCall call(THIS_FUNCTION); }

AcadAppInfo::~AcadAppInfo() {
  const HostCall call(THIS_FUNCTION);
  delete mpImp;
}

void AcadAppInfo::setAppName(const ACHAR* appName) {
  HostCall(THIS_FUNCTION).run([&] { mpImp->record.name = appName ? appName : L""; });
}

void AcadAppInfo::setModuleName(const ACHAR* moduleName) {
  HostCall(THIS_FUNCTION).run([&] { mpImp->record.file = moduleName ? moduleName : L""; });
}

void AcadAppInfo::setLoadReason(AcadApp::LoadReasons reason) {
  HostCall(THIS_FUNCTION).run([&] { mpImp->record.reason = static_cast<DWORD>(reason); });
}

AcadApp::ErrorStatus AcadAppInfo::writeToRegistry(bool bObjDbx, bool skipHKLM) {
  return HostCall(THIS_FUNCTION).run(AcadApp::eUnknownError, [&] {
    wb::note(L"record", std::wstring(L"write") + (bObjDbx ? L" for ObjectDBX" : L"") +
                            (skipHKLM ? L" without HKLM" : L""));
    return statusOf(wb::writeLoadRecord(mpImp->record));
  });
}

AcadApp::ErrorStatus acrxUnregisterApp(const ACHAR* name, bool bDwgU) {
  return HostCall(THIS_FUNCTION).run(AcadApp::eUnknownError, [&] {
    wb::note(L"record", std::wstring(L"delete") + (bDwgU ? L" of the user" : L""));
    return statusOf(wb::deleteLoadRecord(name ? name : L""));
  });
}
