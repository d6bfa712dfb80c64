#include "editor/LoadRecord.h"

#include <windows.h>

#include <appinfo.h>
#include <rxregsvc.h>

#include "core/RegistryKey.h"
#include "core/Transcript.h"

namespace {

constexpr wchar_t applicationsKey[] = L"Software\\Workbench\\Applications";
constexpr wchar_t machineApplicationsKey[] =
    L"SOFTWARE\\Autodesk\\AutoCAD\\R17.1\\ACAD-6001:409\\Applications";

std::wstring pathOf(const std::wstring& name) {
  return std::wstring(applicationsKey) + L"\\" + name;
}

AcadApp::ErrorStatus toStatus(LSTATUS status) {
  switch (status) {
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

}  // namespace

class AcadAppInfoImp {
 public:
  std::wstring name, module;
  DWORD reason = 0;
};

AcadAppInfo::AcadAppInfo() : mpImp(new AcadAppInfoImp) {}
AcadAppInfo::~AcadAppInfo() { delete mpImp; }

void AcadAppInfo::setAppName(const ACHAR* appName) { mpImp->name = appName ? appName : L""; }

void AcadAppInfo::setModuleName(const ACHAR* moduleName) {
  mpImp->module = moduleName ? moduleName : L"";
}

void AcadAppInfo::setLoadReason(AcadApp::LoadReasons reason) {
  mpImp->reason = static_cast<DWORD>(reason);
}

AcadApp::ErrorStatus AcadAppInfo::writeToRegistry(bool bObjDbx, bool skipHKLM) {
  wb::note(L"record", std::wstring(L"write") + (bObjDbx ? L" for ObjectDBX" : L"") +
                          (skipHKLM ? L" without HKLM" : L""));
  if (!isName(mpImp->name)) return AcadApp::eInvalidKey;
  if (mpImp->module.empty()) return AcadApp::eInvalidValue;
  const wb::RegistryKey record(HKEY_CURRENT_USER, pathOf(mpImp->name), KEY_SET_VALUE, true);
  LSTATUS status = record.status();
  if (status == ERROR_SUCCESS) {
    status = RegSetValueExW(record.get(), L"LOADER", 0, REG_SZ,
                            reinterpret_cast<const BYTE*>(mpImp->module.c_str()),
                            static_cast<DWORD>((mpImp->module.size() + 1) * sizeof(wchar_t)));
  }
  if (status == ERROR_SUCCESS) {
    status = RegSetValueExW(record.get(), L"LOADCTRLS", 0, REG_DWORD,
                            reinterpret_cast<const BYTE*>(&mpImp->reason), sizeof(DWORD));
  }
  if (status == ERROR_SUCCESS) {
    wb::tell(wb::Event::reg, L"load record " + mpImp->name + L" = " + mpImp->module + L", reason " +
                                 std::to_wstring(mpImp->reason));
  }
  return toStatus(status);
}

AcadApp::ErrorStatus acrxUnregisterApp(const ACHAR* name, bool bDwgU) {
  wb::note(L"record", std::wstring(L"delete") + (bDwgU ? L" of the user" : L""));
  if (!name || !isName(name)) return AcadApp::eInvalidKey;
  const LSTATUS status = RegDeleteTreeW(HKEY_CURRENT_USER, pathOf(name).c_str());
  if (status == ERROR_SUCCESS) {
    wb::tell(wb::Event::reg, std::wstring(L"load record ") + name + L" deleted");
  }
  return toStatus(status);
}

namespace {

bool hasUserRecord(const std::wstring& name) {
  return wb::RegistryKey(HKEY_CURRENT_USER, pathOf(name), KEY_READ).status() == ERROR_SUCCESS;
}

// Adds the files that a list of applications names for the start.
template <typename Takes>
void addFiles(HKEY root, const wchar_t* path, std::vector<std::wstring>& files, Takes takes) {
  const wb::RegistryKey list(root, path, KEY_READ);
  if (list.status() != ERROR_SUCCESS) return;
  for (DWORD index = 0;; ++index) {
    wchar_t name[256];
    DWORD length = 256;
    if (RegEnumKeyExW(list.get(), index, name, &length, nullptr, nullptr, nullptr, nullptr) !=
        ERROR_SUCCESS) {
      return;
    }
    wchar_t file[MAX_PATH];
    DWORD size = sizeof file, reason = 0, reasonSize = sizeof reason;
    if (RegGetValueW(list.get(), name, L"LOADER", RRF_RT_REG_SZ, nullptr, file, &size) ==
            ERROR_SUCCESS &&
        RegGetValueW(list.get(), name, L"LOADCTRLS", RRF_RT_REG_DWORD, nullptr, &reason,
                     &reasonSize) == ERROR_SUCCESS &&
        (reason & AcadApp::kOnAutoCADStartup) != 0 && (reason & AcadApp::kLoadDisabled) == 0 &&
        takes(name)) {
      files.push_back(file);
    }
  }
}

}  // namespace

namespace wb {

std::vector<std::wstring> filesToLoadAtStart() {
  std::vector<std::wstring> files;
  addFiles(HKEY_CURRENT_USER, applicationsKey, files, [](const std::wstring&) { return true; });
  addFiles(HKEY_LOCAL_MACHINE, machineApplicationsKey, files,
           [](const std::wstring& name) { return !hasUserRecord(name); });
  return files;
}

void clearLoadRecord() { RegDeleteTreeW(HKEY_CURRENT_USER, applicationsKey); }

}  // namespace wb
