#include "editor/LoadRecord.h"

#include <windows.h>

#include <appinfo.h>
#include <rxregsvc.h>

#include <string>

#include "core/RegistrySettings.h"
#include "core/Transcript.h"
#include "gate/HostCall.h"

using Status = AcadApp::ErrorStatus;
using wb::HostCall;

namespace {

Status statusOf(LSTATUS error) {
  switch (error) {
    case ERROR_SUCCESS:
      return AcadApp::eOk;
    case ERROR_FILE_NOT_FOUND:
      return AcadApp::eKeyNotFound;
    case ERROR_ACCESS_DENIED:
      return AcadApp::eRegAccessDenied;
    default:
      return AcadApp::eUnknownError;
  }
}

// A name is one level of the registry.
bool isName(const std::wstring& name) {
  return !name.empty() && name.size() < 256 && name.find(L'\\') == std::wstring::npos;
}

std::wstring pathOf(const std::wstring& name) {
  return std::wstring(wb::usersApplicationsKey) + L"\\" + name;
}

}  // namespace

/// A record of an application that the editor loads on its own.
class AcadAppInfoImp {
 public:
  Status write() const {
    if (!isName(name)) return AcadApp::eInvalidKey;
    if (file.empty()) return AcadApp::eInvalidValue;
    const wb::RegistryKey key(HKEY_CURRENT_USER, pathOf(name), KEY_SET_VALUE, true);
    LSTATUS status = key.status();
    const auto set = [&](const wchar_t* value, DWORD type, const void* data, size_t size) {
      if (status != ERROR_SUCCESS) return;
      status = RegSetValueExW(key.get(), value, 0, type, static_cast<const BYTE*>(data),
                              static_cast<DWORD>(size));
    };
    set(L"LOADER", REG_SZ, file.c_str(), (file.size() + 1) * sizeof(wchar_t));
    set(L"LOADCTRLS", REG_DWORD, &reason, sizeof reason);
    if (status == ERROR_SUCCESS) {
      wb::report(wb::Event::reg,
                 L"load record " + name + L" = " + file + L", reason " + std::to_wstring(reason));
    }
    return statusOf(status);
  }

  std::wstring name;
  std::wstring file;
  DWORD reason = 0;
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
    wb::recordDetail(L"record", std::wstring(L"write") + (bObjDbx ? L" for ObjectDBX" : L"") +
                                    (skipHKLM ? L" without HKLM" : L""));
    return mpImp->write();
  });
}

Status acrxUnregisterApp(const ACHAR* appName, bool bDwgU) {
  return HostCall(THIS_FUNCTION).run(AcadApp::eUnknownError, [&] {
    wb::recordDetail(L"record", std::wstring(L"delete") + (bDwgU ? L" of the user" : L""));
    const std::wstring name = appName ? appName : L"";
    if (!isName(name)) return AcadApp::eInvalidKey;
    const LSTATUS status = RegDeleteTreeW(HKEY_CURRENT_USER, pathOf(name).c_str());
    if (status == ERROR_SUCCESS) wb::report(wb::Event::reg, L"load record " + name + L" deleted");
    return statusOf(status);
  });
}
