#include "xref/XrefPaths.h"

#include <windows.h>

#include <shlwapi.h>

#include <acdocman.h>

#include <cwchar>
#include <stdexcept>

#include "vault/RequireCurrentDrawing.h"

namespace tessaro {

namespace {

using PathBuffer = wchar_t[MAX_PATH];

bool copyPath(const CString& path, PathBuffer& buffer) {
  if (path.size() >= MAX_PATH) return false;
  std::wmemcpy(buffer, path.c_str(), path.size() + 1);
  return true;
}

bool joinPath(const CString& folder, const CString& path, PathBuffer& buffer) {
  buffer[0] = L'\0';
  return PathAppendW(buffer, folder.c_str()) && PathAppendW(buffer, path.c_str());
}

}  // namespace

CString currentDrawingFolder() {
  const CurrentDrawing drawing = requireCurrentDrawing();
  if (!drawing) throw std::runtime_error("Could not get current drawing.");
  PathBuffer folder;
  if (!copyPath(textOf(drawing.document->fileName()), folder) || !PathRemoveFileSpecW(folder) ||
      !PathAddBackslashW(folder)) {
    throw std::runtime_error("Could not get path of current drawing.");
  }
  return folder;
}

bool makeAbsolute(CString& path, CString* folder) {
  if (path.empty()) return false;
  CString base = folder ? *folder : CString();
  if (base.empty()) {
    try {
      base = currentDrawingFolder();
    } catch (const std::runtime_error&) {
      return false;
    }
  }
  if (folder) *folder = base;
  return !PathIsRelativeW(path.c_str()) || joinPath(base, path, path);
}

bool relativeToRoot(const CString& storedPath, const CString& drawingFolder,
                    const CString& rootFolder, CString& relativePath) {
  PathBuffer absolute;
  const bool formed = PathIsRelativeW(storedPath.c_str())
                          ? joinPath(drawingFolder, storedPath, absolute)
                          : copyPath(storedPath, absolute);
  if (!formed || rootFolder.size() >= MAX_PATH) return false;

  PathBuffer relative;
  if (!PathRelativePathToW(relative, rootFolder.c_str(), FILE_ATTRIBUTE_DIRECTORY, absolute,
                           FILE_ATTRIBUTE_DIRECTORY)) {
    return false;
  }
  if (PathIsPrefixW(L"..\\", relative)) return false;
  relativePath = PathIsPrefixW(L".", relative) ? relative + 1 : relative;
  return true;
}

bool joinPath(const CString& folder, const CString& path, CString& joined) {
  PathBuffer buffer;
  if (!joinPath(folder, path, buffer)) return false;
  joined = buffer;
  return true;
}

}  // namespace tessaro
