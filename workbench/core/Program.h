#pragma once

#include <windows.h>

#include <filesystem>
#include <string>

namespace wb {

/// The program that runs; the module, the client and the other programs lie beside it.
inline std::filesystem::path programFile() {
  wchar_t file[MAX_PATH];
  GetModuleFileNameW(nullptr, file, MAX_PATH);
  return file;
}

inline std::filesystem::path programFolder() { return programFile().parent_path(); }

/// Starts this program once more, with the caller's inheritable handles.
/// @param arguments what comes behind the program's name.
/// @return false with the Windows error in GetLastError(). On a busy machine Wine now and then
/// can't start a process, so that it is tried again.
inline bool startProgramAgain(const std::wstring& arguments, STARTUPINFOW& startup,
                              PROCESS_INFORMATION& process) {
  const std::wstring program = programFile();
  for (unsigned attempt = 1;; ++attempt) {
    std::wstring line = L"\"";
    line.append(program).append(L"\" ").append(arguments);
    if (CreateProcessW(program.c_str(), line.data(), nullptr, nullptr, TRUE, 0, nullptr, nullptr,
                       &startup, &process)) {
      return true;
    }
    if (attempt == 3 || GetLastError() != ERROR_INTERNAL_ERROR) return false;
  }
}

}  // namespace wb
