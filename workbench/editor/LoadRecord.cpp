#include "editor/LoadRecord.h"

#include <windows.h>

#include <appinfo.h>

#include <set>
#include <utility>

#include "core/RegistrySettings.h"
#include "core/Text.h"

namespace wb {

std::vector<std::wstring> filesToLoadAtStart() {
  std::vector<std::wstring> files;
  std::set<std::wstring, LessIgnoringCase> seen;
  for (const auto& [root, path] : {std::pair(HKEY_CURRENT_USER, usersApplicationsKey),
                                   std::pair(HKEY_LOCAL_MACHINE, computersApplicationsKey)}) {
    const RegistryKey list(root, path);
    wchar_t name[256], file[MAX_PATH];
    DWORD length = 256;
    for (DWORD index = 0; list.get() && RegEnumKeyExW(list.get(), index, name, &length, nullptr,
                                                      nullptr, nullptr, nullptr) == ERROR_SUCCESS;
         ++index, length = 256) {
      DWORD size = sizeof file, reason = 0, reasonSize = sizeof reason;
      if (seen.insert(name).second &&
          RegGetValueW(list.get(), name, L"LOADER", RRF_RT_REG_SZ, nullptr, file, &size) ==
              ERROR_SUCCESS &&
          RegGetValueW(list.get(), name, L"LOADCTRLS", RRF_RT_REG_DWORD, nullptr, &reason,
                       &reasonSize) == ERROR_SUCCESS &&
          (reason & AcadApp::kOnAutoCADStartup) != 0 && (reason & AcadApp::kLoadDisabled) == 0) {
        files.push_back(file);
      }
    }
  }
  return files;
}

void clearLoadRecord() { RegDeleteTreeW(HKEY_CURRENT_USER, usersApplicationsKey); }

}  // namespace wb
