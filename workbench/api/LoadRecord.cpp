#include "editor/LoadRecord.h"

#include <windows.h>

#include <appinfo.h>
#include <rxregsvc.h>

#include <string>

#include "core/Transcript.h"
#include "gate/HostCall.h"

using Status = AcadApp::ErrorStatus;
using namespace wb;

namespace {

Status statusOf(LSTATUS error) {
  if (error == ERROR_SUCCESS) return AcadApp::eOk;
  if (error == ERROR_FILE_NOT_FOUND) return AcadApp::eKeyNotFound;
  return error == ERROR_ACCESS_DENIED ? AcadApp::eRegAccessDenied : AcadApp::eUnknownError;
}

// A name is one level of the registry.
bool isName(const std::wstring& name) {
  return !name.empty() && name.size() < 256 && name.find(L'\\') == std::wstring::npos;
}

std::wstring pathOf(const std::wstring& name) {
  return std::wstring(usersApplicationsKey) + L"\\" + name;
}

}  // namespace

/// A record of an application that the editor loads on its own.
class AcadAppInfoImp {
 public:
  Status write() const {
    if (!isName(name)) return AcadApp::eInvalidKey;
    if (file.empty()) return AcadApp::eInvalidValue;
    LSTATUS status = set(L"LOADER", REG_SZ, file.c_str(), (file.size() + 1) * sizeof(wchar_t));
    if (status == ERROR_SUCCESS) status = set(L"LOADCTRLS", REG_DWORD, &reason, sizeof reason);
    if (status == ERROR_SUCCESS) {
      report(Event::reg,
             L"load record " + name + L" = " + file + L", reason " + std::to_wstring(reason));
    }
    return statusOf(status);
  }

  std::wstring name;
  std::wstring file;
  DWORD reason = 0;

 private:
  LSTATUS set(const wchar_t* value, DWORD type, const void* data, size_t size) const {
    return RegSetKeyValueW(HKEY_CURRENT_USER, pathOf(name).c_str(), value, type, data,
                           static_cast<DWORD>(size));
  }
};

AcadAppInfo::AcadAppInfo() : mpImp(new AcadAppInfoImp) { const HostCall call(THIS_FUNCTION); }

AcadAppInfo::~AcadAppInfo() {
  const HostCall call(THIS_FUNCTION);
  delete mpImp;
}

void AcadAppInfo::setAppName(const ACHAR* appName) {
  HostCall(THIS_FUNCTION).run([&] { mpImp->name = appName ? appName : L""; });
}

void AcadAppInfo::setModuleName(const ACHAR* moduleName) {
  HostCall(THIS_FUNCTION).run([&] { mpImp->file = moduleName ? moduleName : L""; });
}

void AcadAppInfo::setLoadReason(AcadApp::LoadReasons reason) {
  HostCall(THIS_FUNCTION).run([&] { mpImp->reason = static_cast<DWORD>(reason); });
}

Status AcadAppInfo::writeToRegistry(bool bObjDbx, bool skipHKLM) {
  return HostCall(THIS_FUNCTION).run(AcadApp::eUnknownError, [&] {
    recordDetail(L"record", std::wstring(L"write") + (bObjDbx ? L" for ObjectDBX" : L"") +
                                (skipHKLM ? L" without HKLM" : L""));
    return mpImp->write();
  });
}

Status acrxUnregisterApp(const ACHAR* appName, bool bDwgU) {
  return HostCall(THIS_FUNCTION).run(AcadApp::eUnknownError, [&] {
    recordDetail(L"record", std::wstring(L"delete") + (bDwgU ? L" of the user" : L""));
    const std::wstring name = appName ? appName : L"";
    if (!isName(name)) return AcadApp::eInvalidKey;
    const LSTATUS status = RegDeleteTreeW(HKEY_CURRENT_USER, pathOf(name).c_str());
    if (status == ERROR_SUCCESS) report(Event::reg, L"load record " + name + L" deleted");
    return statusOf(status);
  });
}
