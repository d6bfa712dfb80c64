#include "foundation/ModuleFile.h"

namespace tessaro {

CString moduleFilePath(HINSTANCE module) {
  wchar_t path[MAX_PATH] = {};
  const DWORD length = GetModuleFileNameW(module, path, MAX_PATH);
  return CString(path, length);
}

CString moduleBaseName(HINSTANCE module) {
  CString name = moduleFilePath(module);
  // The last point of the whole path, even if it is in a folder's name.
  if (const size_t point = name.rfind(L'.'); point != CString::npos) name.erase(point);
  if (const size_t backslash = name.rfind(L'\\'); backslash != CString::npos) {
    name.erase(0, backslash + 1);
  }
  return name;
}

}  // namespace tessaro
