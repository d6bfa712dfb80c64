#include "scripting/WorkFolder.h"

#include <windows.h>

#include <fstream>
#include <stdexcept>

#include "core/Text.h"

namespace wb {
namespace {

constexpr wchar_t markName[] = L".workbench-session";

}  // namespace

void deleteTree(const std::filesystem::path& path) {
  const DWORD attributes = GetFileAttributesW(path.c_str());
  const bool isFolder =
      attributes != INVALID_FILE_ATTRIBUTES && (attributes & FILE_ATTRIBUTE_DIRECTORY) != 0;
  const bool isLink = isFolder && (attributes & FILE_ATTRIBUTE_REPARSE_POINT) != 0;
  if (isFolder && !isLink) {
    for (const auto& entry : std::filesystem::directory_iterator(path)) deleteTree(entry.path());
  }
  // The files of a vault view are write-protected.
  SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
  if (isFolder ? RemoveDirectoryW(path.c_str()) : DeleteFileW(path.c_str())) return;
  throw std::runtime_error(toUtf8(path.wstring()) + " can't be deleted, Windows error " +
                           std::to_string(GetLastError()));
}

void prepareWorkFolder(const std::filesystem::path& folder, bool keep) {
  std::filesystem::create_directories(folder);
  const std::filesystem::path mark = folder / markName;
  if (!std::filesystem::exists(mark)) {
    if (!std::filesystem::is_empty(folder)) {
      throw std::runtime_error(toUtf8(folder.wstring()) +
                               " isn't a work folder and isn't empty: it is left alone");
    }
    if (!std::ofstream(mark)) {
      throw std::runtime_error(toUtf8(folder.wstring()) + " can't be written to");
    }
    return;
  }
  if (keep) return;
  for (const auto& entry : std::filesystem::directory_iterator(folder)) {
    if (entry.path().filename() != markName) deleteTree(entry.path());
  }
}

}  // namespace wb
