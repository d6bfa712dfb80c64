#pragma once

#include <windows.h>

#include <filesystem>

namespace wb {

/// The program that runs; the module, the client and the other programs lie beside it.
inline std::filesystem::path programFile() {
  wchar_t file[MAX_PATH];
  GetModuleFileNameW(nullptr, file, MAX_PATH);
  return file;
}

inline std::filesystem::path programFolder() { return programFile().parent_path(); }

}  // namespace wb
