#include "editor/LoadRecord.h"

#include <windows.h>

#include <appinfo.h>

#include "core/RegistryKey.h"
#include "core/Transcript.h"

namespace wb {

namespace {

constexpr wchar_t applicationsKey[] = L"Software\\Workbench\\Applications";
constexpr wchar_t machineApplicationsKey[] =
    L"SOFTWARE\\Autodesk\\AutoCAD\\R17.1\\ACAD-6001:409\\Applications";

std::wstring pathOf(const std::wstring& name) {
  return std::wstring(applicationsKey) + L"\\" + name;
}

// A name is one level of the registry.
bool isName(const std::wstring& name) {
  return !name.empty() && name.size() < 256 && name.find(L'\\') == std::wstring::npos;
}

}  // namespace

LSTATUS writeLoadRecord(const LoadRecord& record) {
  if (!isName(record.name)) return ERROR_INVALID_NAME;
  if (record.file.empty()) return ERROR_INVALID_DATA;
  const RegistryKey key(HKEY_CURRENT_USER, pathOf(record.name), KEY_SET_VALUE, true);
  LSTATUS status = key.status();
  if (status == ERROR_SUCCESS) {
    status = RegSetValueExW(key.get(), L"LOADER", 0, REG_SZ,
                            reinterpret_cast<const BYTE*>(record.file.c_str()),
                            static_cast<DWORD>((record.file.size() + 1) * sizeof(wchar_t)));
  }
  if (status == ERROR_SUCCESS) {
    status = RegSetValueExW(key.get(), L"LOADCTRLS", 0, REG_DWORD,
                            reinterpret_cast<const BYTE*>(&record.reason), sizeof(DWORD));
  }
  if (status == ERROR_SUCCESS) {
    tell(Event::reg, L"load record " + record.name + L" = " + record.file + L", reason " +
                         std::to_wstring(record.reason));
  }
  return status;
}

LSTATUS deleteLoadRecord(const std::wstring& name) {
  if (!isName(name)) return ERROR_INVALID_NAME;
  const LSTATUS status = RegDeleteTreeW(HKEY_CURRENT_USER, pathOf(name).c_str());
  if (status == ERROR_SUCCESS) tell(Event::reg, L"load record " + name + L" deleted");
  return status;
}

namespace {

bool hasUserRecord(const std::wstring& name) {
  return RegistryKey(HKEY_CURRENT_USER, pathOf(name), KEY_READ).status() == ERROR_SUCCESS;
}

// Adds the files that a list of applications names for the start.
template <typename Takes>
void addFiles(HKEY root, const wchar_t* path, std::vector<std::wstring>& files, Takes takes) {
  const RegistryKey list(root, path, KEY_READ);
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

std::vector<std::wstring> filesToLoadAtStart() {
  std::vector<std::wstring> files;
  addFiles(HKEY_CURRENT_USER, applicationsKey, files, [](const std::wstring&) { return true; });
  addFiles(HKEY_LOCAL_MACHINE, machineApplicationsKey, files,
           [](const std::wstring& name) { return !hasUserRecord(name); });
  return files;
}

void clearLoadRecord() { RegDeleteTreeW(HKEY_CURRENT_USER, applicationsKey); }

}  // namespace wb
