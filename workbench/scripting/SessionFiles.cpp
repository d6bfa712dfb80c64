#include "scripting/SessionFiles.h"

#include <windows.h>

#include <fstream>
#include <iterator>
#include <stdexcept>

#include "core/Text.h"

namespace wb {

static constexpr wchar_t markName[] = L".workbench-session";

std::string bytesOf(const std::filesystem::path& file) {
  std::ifstream stream(file, std::ios::binary);
  if (!stream) throw std::runtime_error("can't be read: " + toUtf8(file.wstring()));
  return {std::istreambuf_iterator<char>(stream), {}};
}

void deleteTree(const std::filesystem::path& path) {
  // The files of a vault view are write-protected, and such files Windows doesn't delete.
  SetFileAttributesW(path.c_str(), FILE_ATTRIBUTE_NORMAL);
  if (std::filesystem::is_directory(path)) {
    for (const auto& entry : std::filesystem::recursive_directory_iterator(path)) {
      SetFileAttributesW(entry.path().c_str(), FILE_ATTRIBUTE_NORMAL);
    }
  }
  std::filesystem::remove_all(path);
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
